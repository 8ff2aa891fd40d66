#include "platform/file_copy.h"

#include <cstring>
#include <exception>
#include <vector>

#include "platform/file_facts.h"
#include "platform/lazy_library.h"
#include "text/path_names.h"

namespace {

constinit LazyFunction<decltype(GetFileSecurityW)> getFileSecurity(libraries::advapi32, "GetFileSecurityW");
constinit LazyFunction<decltype(SetFileSecurityW)> setFileSecurity(libraries::advapi32, "SetFileSecurityW");
constinit LazyFunction<decltype(GetSecurityDescriptorControl)> getControl(libraries::advapi32,
                                                                          "GetSecurityDescriptorControl");
constinit LazyFunction<decltype(GetSecurityDescriptorDacl)> getDacl(libraries::advapi32,
                                                                    "GetSecurityDescriptorDacl");
constinit LazyFunction<decltype(GetAce)> getAce(libraries::advapi32, "GetAce");

constexpr DWORD shared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr std::size_t blockSize = 1 << 20;

unsigned Outcome(BOOL done) { return done ? 0u : unsigned{GetLastError()}; }

// What the system's copying calls back. An exception must not pass through the system's frames.
struct Watch {
    const ByteWatcher& watch;
    bool restartable;
    std::exception_ptr thrown;
};

DWORD CALLBACK OnProgress(LARGE_INTEGER, LARGE_INTEGER done, LARGE_INTEGER, LARGE_INTEGER, DWORD, DWORD,
                          HANDLE, HANDLE, void* data)
{
    auto& watch = *static_cast<Watch*>(data);
    try {
        watch.watch(static_cast<std::uint64_t>(done.QuadPart));
        return PROGRESS_CONTINUE;
    } catch (...) {
        watch.thrown = std::current_exception();
        return watch.restartable ? PROGRESS_STOP : PROGRESS_CANCEL; // the latter removes what is there
    }
}

OwnedHandle OpenForReading(std::u16string_view name, DWORD share)
{
    return OwnedHandle(CreateFileW(SystemPath(name).w(), GENERIC_READ, share, nullptr, OPEN_EXISTING,
                                   FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
}

using Descriptor = SecurityBytes;

unsigned ReadDescriptor(const CString& path, SECURITY_INFORMATION parts, Descriptor& descriptor)
{
    constexpr DWORD unit = sizeof(Descriptor::value_type);
    DWORD size = 1024; // enough for nearly all, so that one question does
    for (;;) {
        descriptor.assign(size / unit + 1, 0);
        const BOOL done = getFileSecurity(path.w(), parts, descriptor.data(), size, &size);
        if (done || GetLastError() != ERROR_INSUFFICIENT_BUFFER)
            return Outcome(done);
    }
}

// Whether somebody gave rights to this very file: others it would have anywhere in its folder.
bool HasOwnRights(PSECURITY_DESCRIPTOR descriptor, bool& isProtected)
{
    SECURITY_DESCRIPTOR_CONTROL control = 0;
    DWORD revision = 0;
    BOOL present = FALSE;
    BOOL byDefault = FALSE;
    PACL list = nullptr;
    if (!getControl(descriptor, &control, &revision) || !getDacl(descriptor, &present, &list, &byDefault) ||
        !present)
        return false;
    isProtected = (control & SE_DACL_PROTECTED) != 0;
    if (isProtected || !list)
        return true;
    for (DWORD i = 0; i < list->AceCount; ++i) {
        void* entry = nullptr;
        if (getAce(list, i, &entry) && (static_cast<ACE_HEADER*>(entry)->AceFlags & INHERITED_ACE) == 0)
            return true;
    }
    return false;
}

} // namespace

unsigned CopyFileTo(std::u16string_view from, std::u16string_view to, const CopyManner& manner,
                    const ByteWatcher& watch)
{
    DWORD flags = manner.restartable ? COPY_FILE_RESTARTABLE : COPY_FILE_FAIL_IF_EXISTS;
    flags |= manner.decrypted ? COPY_FILE_ALLOW_DECRYPTED_DESTINATION : 0;
    flags |= manner.links ? COPY_FILE_COPY_SYMLINK : 0;
    Watch watched{watch, manner.restartable, nullptr};
    const unsigned failed = Outcome(CopyFileExW(SystemPath(from).w(), SystemPath(to).w(),
                                                watch ? OnProgress : nullptr, &watched, nullptr, flags));
    if (watched.thrown)
        std::rethrow_exception(watched.thrown);
    return failed;
}

unsigned FlushFile(std::u16string_view name)
{
    const OwnedHandle file(
        CreateFileW(SystemPath(name).w(), GENERIC_WRITE, shared, nullptr, OPEN_EXISTING, 0, nullptr));
    return file ? Outcome(FlushFileBuffers(file.Get())) : unsigned{GetLastError()};
}

unsigned CompareFiles(HANDLE one, HANDLE other, const ByteWatcher& watch)
{
    std::vector<char> first(blockSize);
    std::vector<char> second(blockSize);
    std::uint64_t compared = 0;
    for (;;) {
        if (watch)
            watch(compared);
        DWORD count = 0;
        DWORD otherCount = 0;
        if (!ReadFile(one, first.data(), blockSize, &count, nullptr) ||
            !ReadFile(other, second.data(), blockSize, &otherCount, nullptr))
            return GetLastError();
        if (count != otherCount || std::memcmp(first.data(), second.data(), count) != 0)
            return ERROR_CRC;
        if (count == 0)
            return 0;
        compared += count;
    }
}

unsigned CompareFiles(std::u16string_view one, std::u16string_view other, const ByteWatcher& watch)
{
    const OwnedHandle first = OpenForReading(one, shared);
    if (!first)
        return GetLastError();
    const OwnedHandle second = OpenForReading(other, shared);
    return second ? CompareFiles(first.Get(), second.Get(), watch) : unsigned{GetLastError()};
}

unsigned HeldFile::Open(std::u16string_view name)
{
    file = OwnedHandle(CreateFileW(SystemPath(name).w(), GENERIC_READ | DELETE, FILE_SHARE_READ, nullptr,
                                   OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    return file ? 0u : unsigned{GetLastError()};
}

unsigned HeldFile::Remove()
{
    FILE_DISPOSITION_INFO disposition = {TRUE};
    return Outcome(
        SetFileInformationByHandle(file.Get(), FileDispositionInfo, &disposition, sizeof disposition));
}

unsigned CopyRights(std::u16string_view from, std::u16string_view to, bool owner)
{
    SECURITY_INFORMATION parts = DACL_SECURITY_INFORMATION;
    if (owner)
        parts |= OWNER_SECURITY_INFORMATION | GROUP_SECURITY_INFORMATION;
    Descriptor descriptor;
    if (ReadDescriptor(SystemPath(from), parts, descriptor) != 0)
        return 0; // there are none, or they are not ours to read
    bool isProtected = false;
    if (!HasOwnRights(descriptor.data(), isProtected) && !owner)
        return 0;
    parts |= isProtected ? PROTECTED_DACL_SECURITY_INFORMATION : UNPROTECTED_DACL_SECURITY_INFORMATION;
    return Outcome(setFileSecurity(SystemPath(to).w(), parts, descriptor.data()));
}

unsigned KeptRights::Carry(std::u16string_view from, std::u16string_view to)
{
    Descriptor descriptor;
    bool isProtected = false;
    if (ReadDescriptor(SystemPath(from), DACL_SECURITY_INFORMATION, descriptor) != 0 ||
        !HasOwnRights(descriptor.data(), isProtected))
        return 0; // there are none, or they are not ours to read
    const std::u16string_view folder = DirectoryPart(to);
    if (directory.view() != folder) {
        directory = folder;
        if (ReadDescriptor(SystemPath(to), DACL_SECURITY_INFORMATION, ofNewFiles) != 0)
            ofNewFiles.clear();
    }
    if (descriptor == ofNewFiles)
        return 0;
    return CopyRights(from, to, false);
}

unsigned MakeDirectoryLike(std::u16string_view model, std::u16string_view name)
{
    return Outcome(CreateDirectoryExW(SystemPath(model).w(), SystemPath(name).w(), nullptr));
}
