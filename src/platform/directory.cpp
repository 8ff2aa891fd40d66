#include "platform/directory.h"

#include <algorithm>

#include <windows.h>

#include "platform/environment.h"
#include "platform/file_facts.h"
#include "platform/handle.h"
#include "text/compare.h"

namespace {

bool BeginsWithDrive(std::u16string_view path)
{
    return path.size() >= 2 && path[1] == u':' && IsAsciiLetter(path[0]);
}

CString WithoutTrailingSeparator(CString path)
{
    const bool root = path.size() <= 1 || (path.size() == 3 && BeginsWithDrive(path));
    if (!root && path.back() == u'\\')
        path.Truncate(path.size() - 1);
    return path;
}

// Where the names begin behind the root: "C:\\", or "\\\\server\\share\\".
std::size_t RootLength(std::u16string_view path)
{
    if (BeginsWithDrive(path))
        return 3;
    std::size_t at = path.find(u'\\', 2);
    at = at == CString::npos ? at : path.find(u'\\', at + 1);
    return at == CString::npos ? path.size() : at + 1;
}

// The name in the letter case of the disk, short names made long. Each component is looked for on its own:
// the system's function for long names leaves the case as it is given.
CString NameOnDisk(const CString& path)
{
    CString name = path.Substr(0, RootLength(path));
    if (BeginsWithDrive(name))
        name.Set(0, UpperCase(name[0]));
    std::size_t at = name.size();
    while (at < path.size()) {
        const std::size_t end = std::min(path.Find(u'\\', at), path.size());
        const std::u16string_view component = path.view().substr(at, end - at);
        WIN32_FIND_DATAW entry;
        const OwnedFindHandle search(FindFirstFileExW(SystemPath(name + component).w(), FindExInfoBasic,
                                                      &entry, FindExSearchNameMatch, nullptr, 0));
        if (search)
            name += reinterpret_cast<const char16_t*>(entry.cFileName);
        else
            name += component;
        if (end < path.size())
            name += u'\\';
        at = end + 1;
    }
    return name;
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
    CString path = WithoutTrailingSeparator(FullPathName(directory));
    RememberForDrive(CurrentDirectory()); // the drive that is left may never have been remembered
    if (!SetCurrentDirectoryW(path.w()))
        return false;
    path = NameOnDisk(path);
    SetCurrentDirectoryW(path.w()); // this time for the letter case only
    RememberForDrive(path);
    return true;
}

bool MakeDirectoryOfDrive(std::u16string_view directory)
{
    const CString path = WithoutTrailingSeparator(FullPathName(directory));
    const auto attributes = ReadFileAttributes(path);
    if (!attributes)
        return false;
    if ((*attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
        SetLastError(ERROR_DIRECTORY);
        return false;
    }
    RememberForDrive(NameOnDisk(path));
    return true;
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

CString FirstMatchingDirectory(std::u16string_view pattern)
{
    const CString full = FullPathName(pattern);
    WIN32_FIND_DATAW entry;
    const OwnedFindHandle search(FindFirstFileExW(SystemPath(full).w(), FindExInfoBasic, &entry,
                                                  FindExSearchLimitToDirectories, nullptr, 0));
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
