#include "platform/machine_names.h"

#include <windows.h>

#include <lm.h>

#include "platform/lazy_library.h"

namespace {

constinit LazyLibrary networks(L"netapi32.dll");
constexpr NET_API_STATUS missing = ERROR_PROC_NOT_FOUND;
constinit LazyFunction<decltype(NetGetJoinInformation)> joinInformation(networks, "NetGetJoinInformation",
                                                                        missing);
constinit LazyFunction<decltype(NetServerGetInfo)> serverInfo(networks, "NetServerGetInfo", missing);
constinit LazyFunction<decltype(NetServerEnum)> enumerateServers(networks, "NetServerEnum", missing);
constinit LazyFunction<decltype(NetShareEnum)> enumerateShares(networks, "NetShareEnum", missing);
constinit LazyFunction<decltype(NetApiBufferFree)> freeBuffer(networks, "NetApiBufferFree", missing);

// What the functions of the network hand out.
class NetworkBuffer {
public:
    NetworkBuffer() = default;
    NetworkBuffer(const NetworkBuffer&) = delete;
    NetworkBuffer& operator=(const NetworkBuffer&) = delete;
    ~NetworkBuffer()
    {
        if (memory)
            freeBuffer(memory);
    }
    void* memory = nullptr;
};

// Null for this machine; the system wants "\\" in front of others.
class MachineName {
public:
    explicit MachineName(std::u16string_view machine)
    {
        if (!machine.empty() && !machine.starts_with(u"\\\\"))
            name = u"\\\\";
        name.Append(machine);
    }
    wchar_t* Get() { return name.empty() ? nullptr : reinterpret_cast<wchar_t*>(name.Edit()); }

private:
    CString name;
};

const char16_t* Text(const wchar_t* text) { return reinterpret_cast<const char16_t*>(text); }

} // namespace

CString ComputerName(unsigned format)
{
    CString name;
    DWORD size = 1024;
    if (GetComputerNameExW(static_cast<COMPUTER_NAME_FORMAT>(format),
                           reinterpret_cast<wchar_t*>(name.Edit(size)), &size))
        name.SetLength(size);
    return name;
}

unsigned ReadJoinedTo(std::u16string_view machine, JoinedTo& joined)
{
    NetworkBuffer name;
    NETSETUP_JOIN_STATUS state = NetSetupUnknownStatus;
    const NET_API_STATUS status =
        joinInformation(MachineName(machine).Get(), reinterpret_cast<wchar_t**>(&name.memory), &state);
    if (status != NERR_Success)
        return status;
    joined.domain = state == NetSetupDomainName;
    joined.name = Text(static_cast<const wchar_t*>(name.memory));
    return 0;
}

unsigned ReadServerFacts(std::u16string_view machine, ServerFacts& facts)
{
    NetworkBuffer buffer;
    const NET_API_STATUS status =
        serverInfo(MachineName(machine).Get(), 101, reinterpret_cast<BYTE**>(&buffer.memory));
    if (status != NERR_Success || !buffer.memory)
        return status != NERR_Success ? status : unsigned{ERROR_NOT_SUPPORTED};
    const auto& info = *static_cast<const SERVER_INFO_101*>(buffer.memory);
    facts.name = Text(info.sv101_name);
    facts.comment = Text(info.sv101_comment);
    facts.major = info.sv101_version_major & MAJOR_VERSION_MASK;
    facts.minor = info.sv101_version_minor;
    facts.type = info.sv101_type;
    facts.platform = info.sv101_platform_id;
    return 0;
}

unsigned ListServers(std::u16string_view domain, unsigned types, std::vector<CString>& names)
{
    NetworkBuffer buffer;
    DWORD count = 0;
    DWORD total = 0;
    const CString domainName(domain);
    const NET_API_STATUS status =
        enumerateServers(nullptr, 100, reinterpret_cast<BYTE**>(&buffer.memory), MAX_PREFERRED_LENGTH, &count,
                         &total, types, domain.empty() ? nullptr : domainName.w(), nullptr);
    if (status != NERR_Success && status != ERROR_MORE_DATA)
        return status;
    const auto* servers = static_cast<const SERVER_INFO_100*>(buffer.memory);
    for (DWORD n = 0; servers && n < count; ++n)
        names.push_back(Text(servers[n].sv100_name));
    return 0;
}

unsigned ListShares(std::u16string_view machine, bool hidden, std::vector<CString>& names)
{
    NetworkBuffer buffer;
    DWORD count = 0;
    DWORD total = 0;
    const NET_API_STATUS status =
        enumerateShares(MachineName(machine).Get(), 0, reinterpret_cast<BYTE**>(&buffer.memory),
                        MAX_PREFERRED_LENGTH, &count, &total, nullptr);
    if (status != NERR_Success && status != ERROR_MORE_DATA)
        return status;
    const auto* shares = static_cast<const SHARE_INFO_0*>(buffer.memory);
    for (DWORD n = 0; shares && n < count; ++n) {
        const CString name(Text(shares[n].shi0_netname));
        if (hidden || name.back() != u'$')
            names.push_back(name);
    }
    return 0;
}
