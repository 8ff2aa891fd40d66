#include "platform/file_changes.h"

#include <algorithm>
#include <vector>

#include <windows.h>

#include <shellapi.h>
#include <shlobj.h>

#include "platform/file_facts.h"
#include "platform/handle.h"
#include "platform/lazy_library.h"
#include "text/path_names.h"

namespace {

constinit LazyFunction<decltype(SHFileOperationW)> fileOperation(libraries::shell32, "SHFileOperationW",
                                                                 ERROR_NOT_SUPPORTED);
constinit LazyFunction<decltype(SHChangeNotify)> changeNotify(libraries::shell32, "SHChangeNotify");

unsigned Outcome(BOOL done) { return done ? 0u : unsigned{GetLastError()}; }

FILETIME ToFileTime(std::uint64_t time) { return {static_cast<DWORD>(time), static_cast<DWORD>(time >> 32)}; }

// Whether deleted files of the name's drive can be kept: network drives and discs have no bin, and the
// shell's operation would delete for good without a word.
bool HasRecycleBin(const CString& fullName)
{
    wchar_t root[MAX_PATH] = {};
    return GetVolumePathNameW(fullName.w(), root, MAX_PATH) && GetDriveTypeW(root) == DRIVE_FIXED;
}

// A generator of bytes that nothing could tell from noise on a disk; it need not be a secret.
void FillWithNoise(std::vector<std::uint64_t>& block)
{
    static_assert(sizeof(LARGE_INTEGER) == sizeof(std::uint64_t));
    LARGE_INTEGER seed;
    QueryPerformanceCounter(&seed);
    std::uint64_t state = static_cast<std::uint64_t>(seed.QuadPart) | 1;
    for (std::uint64_t& word : block) {
        state ^= state << 13;
        state ^= state >> 7;
        state ^= state << 17;
        word = state;
    }
}

unsigned OverwriteOnce(HANDLE file, std::uint64_t size, bool noise, void (*poll)())
{
    if (!SetFilePointerEx(file, {}, nullptr, FILE_BEGIN))
        return GetLastError();
    constexpr std::size_t words = 1 << 15;
    std::vector<std::uint64_t> block(words);
    for (std::uint64_t left = size; left > 0;) {
        poll();
        if (noise)
            FillWithNoise(block);
        const auto count = static_cast<DWORD>(std::min<std::uint64_t>(left, words * sizeof(block[0])));
        DWORD written = 0;
        if (!WriteFile(file, block.data(), count, &written, nullptr))
            return GetLastError();
        left -= written;
    }
    return Outcome(FlushFileBuffers(file));
}

} // namespace

unsigned MakeDirectory(std::u16string_view name)
{
    return Outcome(CreateDirectoryW(SystemPath(name).w(), nullptr));
}

unsigned MakeDirectoryWithParents(std::u16string_view name, void (*made)(std::u16string_view))
{
    const unsigned failed = MakeDirectory(name);
    if (failed != ERROR_PATH_NOT_FOUND)
        return failed;
    const std::u16string_view parent = WithoutEndSeparators(DirectoryPart(name));
    // A drive or a share that is not there has no parent that could be made.
    if (parent.empty() || parent.ends_with(u':') || parent.size() >= name.size())
        return failed;
    const unsigned above = MakeDirectoryWithParents(parent, made);
    // Somebody else may have made it in the meantime.
    if (above != 0 && above != ERROR_ALREADY_EXISTS)
        return above;
    if (above == 0 && made)
        made(FullPathName(parent));
    return MakeDirectory(name);
}

unsigned RemoveEmptyDirectory(std::u16string_view name)
{
    return Outcome(RemoveDirectoryW(SystemPath(name).w()));
}

unsigned EraseFile(std::u16string_view name) { return Outcome(DeleteFileW(SystemPath(name).w())); }

unsigned RenameFile(std::u16string_view from, std::u16string_view to, bool replace)
{
    return Outcome(
        MoveFileExW(SystemPath(from).w(), SystemPath(to).w(), replace ? MOVEFILE_REPLACE_EXISTING : 0));
}

unsigned ChangeAttributes(std::u16string_view name, std::uint32_t attributes)
{
    return Outcome(WriteFileAttributes(name, attributes));
}

unsigned ChangeFileTimes(std::u16string_view name, const NewFileTimes& times)
{
    constexpr DWORD anybody = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const OwnedHandle file(CreateFileW(SystemPath(name).w(), FILE_WRITE_ATTRIBUTES, anybody, nullptr,
                                       OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    if (!file)
        return GetLastError();
    const FILETIME written = ToFileTime(times.written);
    const FILETIME accessed = ToFileTime(times.accessed);
    const FILETIME created = ToFileTime(times.created);
    return Outcome(SetFileTime(file.Get(), times.created ? &created : nullptr,
                               times.accessed ? &accessed : nullptr, times.written ? &written : nullptr));
}

unsigned MakeHardLink(std::u16string_view name, std::u16string_view existing)
{
    return CreateHardLinkW(SystemPath(name).w(), SystemPath(existing).w(), nullptr)
               ? 0u
               : unsigned{GetLastError()};
}

unsigned CreateEmptyFile(std::u16string_view name)
{
    const OwnedHandle file(CreateFileW(SystemPath(name).w(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                       FILE_ATTRIBUTE_NORMAL, nullptr));
    return file ? 0u : unsigned{GetLastError()};
}

unsigned MoveToRecycleBin(std::u16string_view name)
{
    CString names = FullPathName(name);
    if (!HasRecycleBin(names))
        return ERROR_NOT_SUPPORTED;
    names += u'\0'; // the list ends with two of them
    SHFILEOPSTRUCTW operation = {};
    operation.wFunc = FO_DELETE;
    operation.pFrom = names.w();
    operation.fFlags = FOF_ALLOWUNDO | FOF_NOCONFIRMATION | FOF_SILENT | FOF_NOERRORUI;
    const int code = fileOperation(&operation);
    if (code != 0)
        return static_cast<unsigned>(code);
    return operation.fAnyOperationsAborted ? ERROR_CANCELLED : 0u;
}

unsigned OverwriteContents(std::u16string_view name, int passes, void (*poll)())
{
    const OwnedHandle file(CreateFileW(SystemPath(name).w(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                       FILE_FLAG_WRITE_THROUGH, nullptr));
    LARGE_INTEGER size;
    if (!file || !GetFileSizeEx(file.Get(), &size))
        return GetLastError();
    for (int pass = 1; pass <= passes; ++pass)
        if (const unsigned failed =
                OverwriteOnce(file.Get(), static_cast<std::uint64_t>(size.QuadPart), pass < passes, poll))
            return failed;
    return 0;
}

void NotifyFolders(FolderChange change, std::u16string_view name, std::u16string_view newName)
{
    constexpr LONG events[] = {SHCNE_CREATE,     SHCNE_DELETE, SHCNE_RENAMEITEM,
                               SHCNE_UPDATEITEM, SHCNE_MKDIR,  SHCNE_RMDIR};
    const CString full = FullPathName(name);
    const CString fullNew = newName.empty() ? CString() : FullPathName(newName);
    changeNotify(events[static_cast<int>(change)], SHCNF_PATHW, full.w(),
                 newName.empty() ? nullptr : fullNew.w());
}

void NotifyOfFileTypes() { changeNotify(SHCNE_ASSOCCHANGED, SHCNF_IDLIST, nullptr, nullptr); }
