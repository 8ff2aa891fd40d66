#include "platform/network_adapters.h"

#include <winsock2.h>
#include <ws2tcpip.h>

#include <iphlpapi.h>

#include "platform/lazy_library.h"
#include "platform/network_libraries.h"
#include "text/encoding.h"
#include "text/format.h"

namespace {

constinit LazyFunction<decltype(GetAdaptersAddresses)>
    getAddresses(libraries::iphlpapi, "GetAdaptersAddresses", ERROR_PROC_NOT_FOUND);
constinit LazyFunction<decltype(GetAdaptersInfo)> getInfo(libraries::iphlpapi, "GetAdaptersInfo",
                                                          ERROR_PROC_NOT_FOUND);
constinit LazyFunction<decltype(GetNetworkParams)> getParameters(libraries::iphlpapi, "GetNetworkParams",
                                                                 ERROR_PROC_NOT_FOUND);
constinit LazyFunction<decltype(GetBestInterface)> bestInterface(libraries::iphlpapi, "GetBestInterface",
                                                                 ERROR_PROC_NOT_FOUND);
constinit LazyFunction<decltype(SendARP)> sendArp(libraries::iphlpapi, "SendARP", ERROR_PROC_NOT_FOUND);

// Calls f(buffer, &size) until the buffer is large enough; empty when it fails. In units of the alignment
// that the system's records need.
template <typename Function> std::vector<std::uint64_t> ReadRecords(Function function)
{
    ULONG bytes = 16384;
    for (int attempt = 0; attempt < 4; ++attempt) {
        std::vector<std::uint64_t> memory(bytes / sizeof(std::uint64_t) + 1);
        const ULONG status = function(memory.data(), &bytes);
        if (status == ERROR_SUCCESS)
            return memory;
        if (status != ERROR_BUFFER_OVERFLOW)
            break;
    }
    return {};
}

bool IsLinkLocal(const sockaddr* address)
{
    const auto& bytes = reinterpret_cast<const sockaddr_in6*>(address)->sin6_addr.s6_addr;
    return bytes[0] == 0xFE && (bytes[1] & 0xC0) == 0x80;
}

CString MaskText(unsigned prefixLength)
{
    const std::uint32_t mask = prefixLength == 0 ? 0 : 0xFFFFFFFFu << (32 - (prefixLength & 31)) % 32;
    return Format(u"%u.%u.%u.%u", mask >> 24, mask >> 16 & 0xFF, mask >> 8 & 0xFF, mask & 0xFF);
}

template <typename Node> void AddAddresses(std::vector<CString>& list, const Node* node)
{
    for (; node; node = node->Next)
        list.push_back(AddressText(node->Address.lpSockaddr));
}

void AddUnicast(NetworkAdapter& adapter, const IP_ADAPTER_UNICAST_ADDRESS_LH* node)
{
    for (; node; node = node->Next) {
        const sockaddr* address = node->Address.lpSockaddr;
        if (address->sa_family == AF_INET) {
            adapter.addresses4.push_back(AddressText(address));
            adapter.masks4.push_back(MaskText(node->OnLinkPrefixLength));
        } else if (address->sa_family == AF_INET6) {
            (IsLinkLocal(address) ? adapter.linkLocal6 : adapter.addresses6).push_back(AddressText(address));
        }
    }
}

NetworkAdapter AdapterOf(const IP_ADAPTER_ADDRESSES& record)
{
    NetworkAdapter adapter;
    adapter.name = reinterpret_cast<const char16_t*>(record.FriendlyName);
    adapter.description = reinterpret_cast<const char16_t*>(record.Description);
    adapter.physicalAddress = PhysicalAddressText(record.PhysicalAddress, record.PhysicalAddressLength);
    AddUnicast(adapter, record.FirstUnicastAddress);
    AddAddresses(adapter.gateways, record.FirstGatewayAddress);
    AddAddresses(adapter.dnsServers, record.FirstDnsServerAddress);
    AddAddresses(adapter.winsServers, record.FirstWinsServerAddress);
    if (record.Dhcpv4Server.lpSockaddr && record.Dhcpv4Server.iSockaddrLength > 0)
        adapter.dhcpServer = AddressText(record.Dhcpv4Server.lpSockaddr);
    adapter.index = record.IfIndex;
    adapter.index6 = record.Ipv6IfIndex;
    adapter.type = record.IfType;
    adapter.up = record.OperStatus == IfOperStatusUp;
    adapter.dhcp = record.Dhcpv4Enabled != 0;
    return adapter;
}

// Leases stand only in the older of the system's two records.
void AddLeases(std::vector<NetworkAdapter>& adapters)
{
    auto read = [](void* memory, ULONG* bytes) {
        return getInfo(static_cast<IP_ADAPTER_INFO*>(memory), bytes);
    };
    const std::vector<std::uint64_t> memory = ReadRecords(read);
    if (memory.empty())
        return;
    for (auto* info = reinterpret_cast<const IP_ADAPTER_INFO*>(memory.data()); info; info = info->Next) {
        for (NetworkAdapter& adapter : adapters) {
            if (adapter.index != info->Index || !info->DhcpEnabled)
                continue;
            adapter.leaseObtained = info->LeaseObtained;
            adapter.leaseExpires = info->LeaseExpires;
        }
    }
}

} // namespace

CString PhysicalAddressText(const unsigned char* bytes, std::size_t length)
{
    CString text;
    for (std::size_t n = 0; n < length; ++n)
        FormatInto(text, n == 0 ? u"%02X" : u"-%02X", {unsigned{bytes[n]}});
    return text;
}

std::vector<NetworkAdapter> NetworkAdapters()
{
    constexpr ULONG flags = GAA_FLAG_SKIP_ANYCAST | GAA_FLAG_SKIP_MULTICAST | GAA_FLAG_INCLUDE_GATEWAYS |
                            GAA_FLAG_INCLUDE_WINS_INFO;
    auto read = [](void* memory, ULONG* bytes) {
        return getAddresses(AF_UNSPEC, flags, nullptr, static_cast<IP_ADAPTER_ADDRESSES*>(memory), bytes);
    };
    const std::vector<std::uint64_t> memory = ReadRecords(read);
    std::vector<NetworkAdapter> adapters;
    if (memory.empty())
        return adapters;
    for (auto* record = reinterpret_cast<const IP_ADAPTER_ADDRESSES*>(memory.data()); record;
         record = record->Next)
        if (record->IfType != IF_TYPE_SOFTWARE_LOOPBACK)
            adapters.push_back(AdapterOf(*record));
    AddLeases(adapters);
    return adapters;
}

int BestAdapter(const std::vector<NetworkAdapter>& adapters)
{
    constexpr IPAddr somewhere = 0x08080808; // any address of the internet: the route is looked up only
    DWORD index = 0;
    if (bestInterface(somewhere, &index) == NO_ERROR) {
        for (std::size_t n = 0; n < adapters.size(); ++n)
            if (adapters[n].index == index)
                return static_cast<int>(n);
    }
    for (std::size_t n = 0; n < adapters.size(); ++n)
        if (adapters[n].up && !adapters[n].addresses4.empty())
            return static_cast<int>(n);
    return -1;
}

NetworkSettings ReadNetworkSettings()
{
    auto read = [](void* memory, ULONG* bytes) {
        return getParameters(static_cast<FIXED_INFO*>(memory), bytes);
    };
    const std::vector<std::uint64_t> memory = ReadRecords(read);
    NetworkSettings settings;
    if (memory.empty())
        return settings;
    const auto& record = *reinterpret_cast<const FIXED_INFO*>(memory.data());
    for (const IP_ADDR_STRING* server = &record.DnsServerList; server; server = server->Next)
        if (server->IpAddress.String[0])
            settings.dnsServers.push_back(FromAscii(server->IpAddress.String));
    settings.domain = FromAscii(record.DomainName);
    settings.routing = record.EnableRouting != 0;
    settings.arpProxy = record.EnableProxy != 0;
    settings.dns = record.EnableDns != 0;
    return settings;
}

CString PhysicalAddressOf(std::uint32_t address)
{
    unsigned char bytes[8] = {};
    ULONG length = sizeof bytes;
    if (sendArp(address, 0, bytes, &length) != NO_ERROR)
        return {};
    return PhysicalAddressText(bytes, length);
}
