#include "platform/directory.h"

#include <windows.h>

#include "platform/environment.h"
#include "platform/handle.h"
#include "text/compare.h"

namespace {

// Calls a system function that fills a buffer and answers the length, or the size it needs.
template <typename Fill> CString FilledText(Fill fill)
{
    CString text;
    DWORD size = MAX_PATH;
    for (;;) {
        auto* buffer = reinterpret_cast<wchar_t*>(text.Edit(size));
        const DWORD length = fill(buffer, size);
        if (length < size) {
            text.SetLength(length);
            return text;
        }
        size = length + 1;
    }
}

bool BeginsWithDrive(std::u16string_view path)
{
    return path.size() >= 2 && path[1] == u':' && IsAsciiLetter(path[0]);
}

// The name in the letter case of the disk, short names made long.
CString NameOnDisk(const CString& path)
{
    CString name =
        FilledText([&](wchar_t* buffer, DWORD size) { return GetLongPathNameW(path.w(), buffer, size); });
    if (name.empty())
        name = path;
    if (BeginsWithDrive(name))
        name.Set(0, UpperCase(name[0]));
    return name;
}

void DropTrailingSeparator(CString& path)
{
    const bool root = path.size() <= 1 || (path.size() == 3 && BeginsWithDrive(path));
    if (!root && path.back() == u'\\')
        path.Truncate(path.size() - 1);
}

CString DriveVariable(char16_t letter)
{
    CString name(u"=");
    return name.Append(UpperCase(letter)).Append(u':');
}

void RememberForDrive(std::u16string_view path)
{
    if (BeginsWithDrive(path))
        WriteEnvironment(DriveVariable(path[0]), path);
}

} // namespace

CString CurrentDirectory()
{
    CString path = FilledText([](wchar_t* buffer, DWORD size) { return GetCurrentDirectoryW(size, buffer); });
    DropTrailingSeparator(path);
    return path;
}

CString DirectoryOfDrive(char16_t letter)
{
    const CString current = CurrentDirectory();
    if (BeginsWithDrive(current) && UpperCase(current[0]) == UpperCase(letter))
        return current;
    CString path;
    if (!ReadEnvironment(DriveVariable(letter), path))
        path.Append(UpperCase(letter)).Append(u":\\");
    return path;
}

bool MakeCurrent(std::u16string_view directory)
{
    CString path = FullPathName(directory);
    DropTrailingSeparator(path);
    if (!SetCurrentDirectoryW(path.w()))
        return false;
    path = NameOnDisk(path);
    SetCurrentDirectoryW(path.w()); // this time for the letter case only
    RememberForDrive(path);
    return true;
}

bool MakeDirectoryOfDrive(std::u16string_view directory)
{
    CString path = FullPathName(directory);
    DropTrailingSeparator(path);
    const DWORD attributes = GetFileAttributesW(path.w());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return false;
    if (!(attributes & FILE_ATTRIBUTE_DIRECTORY)) {
        SetLastError(ERROR_DIRECTORY);
        return false;
    }
    RememberForDrive(NameOnDisk(path));
    return true;
}

bool IsDirectory(std::u16string_view name)
{
    const DWORD attributes = GetFileAttributesW(CString(name).w());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

bool DriveExists(char16_t letter)
{
    if (IsAsciiLetter(letter) && (GetLogicalDrives() >> (UpperCase(letter) - u'A') & 1) != 0)
        return true;
    SetLastError(ERROR_INVALID_DRIVE);
    return false;
}

std::vector<char16_t> AllDrives()
{
    std::vector<char16_t> letters;
    for (char16_t letter = u'A'; letter <= u'Z'; ++letter)
        if (DriveExists(letter))
            letters.push_back(letter);
    return letters;
}

CString FullPathName(std::u16string_view name)
{
    const CString text(name);
    CString path = FilledText(
        [&](wchar_t* buffer, DWORD size) { return GetFullPathNameW(text.w(), size, buffer, nullptr); });
    return path.empty() ? text : path;
}

CString FirstMatchingDirectory(std::u16string_view pattern)
{
    const CString full = FullPathName(pattern);
    WIN32_FIND_DATAW entry;
    const OwnedFindHandle search(
        FindFirstFileExW(full.w(), FindExInfoBasic, &entry, FindExSearchLimitToDirectories, nullptr, 0));
    if (!search)
        return {};
    do {
        const std::u16string_view name = reinterpret_cast<const char16_t*>(entry.cFileName);
        if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) && name != u"." && name != u"..")
            return full.Substr(0, full.view().rfind(u'\\') + 1) + name;
    } while (FindNextFileW(search.Get(), &entry));
    SetLastError(ERROR_PATH_NOT_FOUND);
    return {};
}
