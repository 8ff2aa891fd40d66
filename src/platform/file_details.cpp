#include "platform/file_details.h"

#include <aclapi.h>

#include "platform/clock.h"
#include "platform/file_facts.h"
#include "platform/handle.h"
#include "platform/lazy_library.h"

namespace {

constinit LazyFunction<decltype(GetNamedSecurityInfoW)>
    getNamedSecurityInfo(libraries::advapi32, "GetNamedSecurityInfoW", ERROR_PROC_NOT_FOUND);
constinit LazyFunction<decltype(LookupAccountSidW)> lookupAccountSid(libraries::advapi32,
                                                                     "LookupAccountSidW");

constexpr std::uint64_t ticksPerSlot = 9'000'000'000; // a quarter of an hour

class LocalMemory {
public:
    explicit LocalMemory(void* taken) : memory(taken) {}
    LocalMemory(const LocalMemory&) = delete;
    LocalMemory& operator=(const LocalMemory&) = delete;
    ~LocalMemory() { LocalFree(memory); }

private:
    void* memory;
};

std::uint64_t Number(DWORD high, DWORD low) { return (static_cast<std::uint64_t>(high) << 32) | low; }

const char16_t* Units(const wchar_t* text) { return reinterpret_cast<const char16_t*>(text); }

OwnedHandle OpenForFacts(std::u16string_view name)
{
    return OwnedHandle(CreateFileW(SystemPath(name).w(), FILE_READ_ATTRIBUTES,
                                   FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                   OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

std::optional<FileIdentity> Identify(const OwnedHandle& file)
{
    BY_HANDLE_FILE_INFORMATION facts;
    if (!file || !GetFileInformationByHandle(file.Get(), &facts))
        return std::nullopt;
    return FileIdentity{facts.dwVolumeSerialNumber, Number(facts.nFileIndexHigh, facts.nFileIndexLow),
                        facts.nNumberOfLinks};
}

// The volume's root for a directory of it; "" when there is none.
CString VolumeRoot(std::u16string_view directory)
{
    const CString path = SystemPath(directory);
    CString root;
    const DWORD room = static_cast<DWORD>(path.size() + MAX_PATH);
    wchar_t* units = reinterpret_cast<wchar_t*>(root.Edit(room));
    if (!GetVolumePathNameW(path.w(), units, room))
        return {};
    root.SetLength(std::char_traits<wchar_t>::length(units));
    return root;
}

} // namespace

std::uint64_t FileTimeNow()
{
    FILETIME now;
    GetSystemTimeAsFileTime(&now);
    return FileTimeNumber(now);
}

std::uint64_t LocalFileTimes::Convert(std::uint64_t fileTime)
{
    // Clocks are put forward and back on the quarter at most.
    const std::uint64_t asked = fileTime / ticksPerSlot;
    if (asked != slot) {
        const std::uint64_t start = asked * ticksPerSlot;
        difference = static_cast<std::int64_t>(LocalFileTime(start) - start);
        slot = asked;
    }
    return fileTime + static_cast<std::uint64_t>(difference);
}

CString FileOwner(std::u16string_view name)
{
    CString path = SystemPath(name);
    PSID owner = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    const DWORD code =
        getNamedSecurityInfo(const_cast<wchar_t*>(path.w()), SE_FILE_OBJECT, OWNER_SECURITY_INFORMATION,
                             &owner, nullptr, nullptr, nullptr, &descriptor);
    if (code != ERROR_SUCCESS || !descriptor)
        return {};
    const LocalMemory keeper(descriptor);
    constexpr DWORD longest = 256;
    wchar_t account[longest];
    wchar_t domain[longest];
    DWORD accountUnits = longest;
    DWORD domainUnits = longest;
    SID_NAME_USE use;
    if (!owner || !lookupAccountSid(nullptr, owner, account, &accountUnits, domain, &domainUnits, &use))
        return {};
    CString text(Units(domain));
    if (!text.empty())
        text.Append(u'\\');
    return text.Append(Units(account));
}

std::optional<std::uint64_t> CompressedFileSize(std::u16string_view name)
{
    DWORD high = 0;
    SetLastError(NO_ERROR);
    const DWORD low = GetCompressedFileSizeW(SystemPath(name).w(), &high);
    if (low == INVALID_FILE_SIZE && GetLastError() != NO_ERROR)
        return std::nullopt;
    return Number(high, low);
}

std::optional<FileIdentity> IdentifyFile(std::u16string_view name) { return Identify(OpenForFacts(name)); }

bool IsOneFile(std::u16string_view name, std::u16string_view other)
{
    const OwnedHandle first = OpenForFacts(name);
    const OwnedHandle second = OpenForFacts(other);
    // What the system knows without asking for the volume tells most files apart.
    FILE_BASIC_INFO facts;
    FILE_BASIC_INFO otherFacts;
    if (GetFileInformationByHandleEx(first.Get(), FileBasicInfo, &facts, sizeof facts) &&
        GetFileInformationByHandleEx(second.Get(), FileBasicInfo, &otherFacts, sizeof otherFacts) &&
        facts.ChangeTime.QuadPart != otherFacts.ChangeTime.QuadPart)
        return false;
    const auto one = Identify(first);
    const auto two = Identify(second);
    return one && two && one->volume == two->volume && one->file == two->file;
}

std::vector<FileStream> NamedStreams(std::u16string_view name)
{
    std::vector<FileStream> streams;
    WIN32_FIND_STREAM_DATA stream;
    const OwnedFindHandle search(FindFirstStreamW(SystemPath(name).w(), FindStreamInfoStandard, &stream, 0));
    if (!search)
        return streams;
    do {
        const std::u16string_view streamName = Units(stream.cStreamName);
        if (streamName != u"::$DATA")
            streams.push_back({CString(streamName), static_cast<std::uint64_t>(stream.StreamSize.QuadPart)});
    } while (FindNextStreamW(search.Get(), &stream));
    return streams;
}

std::optional<VolumeFacts> ReadVolumeFacts(std::u16string_view directory)
{
    const CString root = VolumeRoot(directory);
    wchar_t label[MAX_PATH + 1] = L"";
    DWORD serial = 0;
    if (!GetVolumeInformationW(root.w(), label, MAX_PATH + 1, &serial, nullptr, nullptr, nullptr, 0))
        return std::nullopt;
    return VolumeFacts{CString(Units(label)), serial};
}

std::optional<std::uint64_t> FreeBytes(std::u16string_view directory)
{
    ULARGE_INTEGER bytes;
    if (!GetDiskFreeSpaceExW(SystemPath(directory).w(), &bytes, nullptr, nullptr))
        return std::nullopt;
    return bytes.QuadPart;
}
