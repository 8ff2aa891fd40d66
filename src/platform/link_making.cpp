#include "platform/link_making.h"

#include <cstddef>
#include <string>

#include <windows.h>

#include <winioctl.h>

#include "platform/file_facts.h"
#include "platform/handle.h"
#include "platform/lazy_library.h"
#include "text/link_record.h"
#include "text/path_names.h"

namespace {

constexpr DWORD unprivileged = 0x2; // SYMBOLIC_LINK_FLAG_ALLOW_UNPRIVILEGED_CREATE

unsigned Outcome(BOOL done) { return done ? 0u : unsigned{GetLastError()}; }

unsigned WriteJunction(const CString& link, const CString& target)
{
    const OwnedHandle directory(CreateFileW(SystemPath(link).w(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                            FILE_FLAG_OPEN_REPARSE_POINT | FILE_FLAG_BACKUP_SEMANTICS,
                                            nullptr));
    if (!directory)
        return GetLastError();
    std::string record = JunctionRecord(target);
    DWORD length = 0;
    return Outcome(DeviceIoControl(directory.Get(), FSCTL_SET_REPARSE_POINT, record.data(),
                                   static_cast<DWORD>(record.size()), nullptr, 0, &length, nullptr));
}

// What the kernel tells of a file's names; each stands in a directory that is told by number.
struct FileLink {
    ULONG next; // bytes from here, 0 at the end
    LONGLONG directory;
    ULONG length; // units
    WCHAR name[1];
};
struct FileLinks {
    ULONG needed; // bytes
    ULONG count;
    FileLink first;
};
constexpr int linksInformation = 46; // FileHardLinkInformation

constinit LazyLibrary ntdll(L"ntdll.dll");
constinit LazyFunction<LONG WINAPI(HANDLE, void*, void*, ULONG, int)> queryFile(ntdll,
                                                                                "NtQueryInformationFile", -1);

HANDLE OpenForQuestions(const CString& name)
{
    return CreateFileW(name.w(), FILE_READ_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                       nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT,
                       nullptr);
}

bool ReadLinks(HANDLE file, std::vector<std::byte>& record)
{
    constexpr std::size_t most = 16u << 20;
    for (std::size_t room = 4096; room <= most; room *= 4) {
        record.assign(room, {});
        void* status[2] = {};
        if (queryFile(file, status, record.data(), static_cast<ULONG>(room), linksInformation) >= 0)
            return true;
        if (reinterpret_cast<const FileLinks*>(record.data())->needed <= room)
            return false;
    }
    return false;
}

// "" when it may not be asked.
CString DirectoryWithId(HANDLE onSameVolume, LONGLONG id)
{
    constexpr DWORD anybody = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    FILE_ID_DESCRIPTOR descriptor = {};
    descriptor.dwSize = sizeof descriptor;
    descriptor.Type = FileIdType;
    descriptor.FileId.QuadPart = id;
    const OwnedHandle directory(OpenFileById(onSameVolume, &descriptor, FILE_READ_ATTRIBUTES, anybody,
                                             nullptr, FILE_FLAG_BACKUP_SEMANTICS));
    return directory ? PathOfHandle(directory.Get()) : CString();
}

} // namespace

unsigned MakeSymbolicLink(std::u16string_view link, std::u16string_view target, bool toDirectory)
{
    const DWORD kind = toDirectory ? SYMBOLIC_LINK_FLAG_DIRECTORY : 0;
    const CString name = SystemPath(link);
    const CString leadsTo(target);
    if (CreateSymbolicLinkW(name.w(), leadsTo.w(), kind | unprivileged))
        return 0;
    // Systems older than that flag refuse it.
    if (GetLastError() != ERROR_INVALID_PARAMETER)
        return GetLastError();
    return Outcome(CreateSymbolicLinkW(name.w(), leadsTo.w(), kind));
}

unsigned MakeJunction(std::u16string_view link, std::u16string_view target)
{
    const CString full(WithoutEndSeparators(FullPathName(target)));
    if (full.view().starts_with(u"\\\\"))
        return ERROR_NOT_SUPPORTED; // junctions do not leave the computer
    const CString name = SystemPath(link);
    if (!CreateDirectoryW(name.w(), nullptr))
        return GetLastError();
    const unsigned failed = WriteJunction(name, full);
    if (failed)
        RemoveDirectoryW(name.w());
    return failed;
}

std::vector<CString> HardLinkNames(std::u16string_view name)
{
    std::vector<CString> names;
    const OwnedHandle file(OpenForQuestions(SystemPath(name)));
    std::vector<std::byte> record;
    if (!file || !ReadLinks(file.Get(), record))
        return names;
    const auto* links = reinterpret_cast<const FileLinks*>(record.data());
    std::size_t at = offsetof(FileLinks, first);
    for (ULONG i = 0; i < links->count && at + sizeof(FileLink) <= record.size(); ++i) {
        const auto* link = reinterpret_cast<const FileLink*>(record.data() + at);
        const CString directory = DirectoryWithId(file.Get(), link->directory);
        if (!directory.empty())
            names.push_back(
                JoinPath(directory, {reinterpret_cast<const char16_t*>(link->name), link->length}));
        if (link->next == 0)
            break;
        at += link->next;
    }
    return names;
}
