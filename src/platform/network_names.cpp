#include "platform/network_names.h"

#include <algorithm>
#include <functional>
#include <memory>

#include "platform/network_libraries.h"

#include <ws2tcpip.h>

#include <iphlpapi.h>

#include <icmpapi.h>
#include <windns.h>

#include "platform/handle.h"
#include "text/compare.h"
#include "text/encoding.h"
#include "text/format.h"
#include "text/numbers.h"

namespace {

using View = std::u16string_view;

constexpr DWORD patience = 900;          // milliseconds for a look-up
constexpr std::size_t longestName = 253; // units of a machine's name
constexpr std::size_t longestPart = 63;

constinit LazyFunction<decltype(WSAStartup)> startSockets(libraries::sockets, "WSAStartup", WSASYSNOTREADY);
constinit LazyFunction<decltype(GetAddrInfoW)> getAddresses(libraries::sockets, "GetAddrInfoW",
                                                            WSAHOST_NOT_FOUND);
constinit LazyFunction<decltype(FreeAddrInfoW)> freeAddresses(libraries::sockets, "FreeAddrInfoW");
constinit LazyFunction<decltype(GetNameInfoW)> getName(libraries::sockets, "GetNameInfoW", WSAHOST_NOT_FOUND);
constinit LazyFunction<decltype(gethostbyname)> hostByName(libraries::sockets, "gethostbyname");
constinit LazyFunction<decltype(getservbyname)> serviceByName(libraries::sockets, "getservbyname");
constinit LazyFunction<decltype(getservbyport)> serviceByPort(libraries::sockets, "getservbyport");

constinit LazyFunction<decltype(IcmpCreateFile)> openEcho(libraries::iphlpapi, "IcmpCreateFile");
constinit LazyFunction<decltype(IcmpCloseHandle)> closeEcho(libraries::iphlpapi, "IcmpCloseHandle");
constinit LazyFunction<decltype(IcmpSendEcho)> sendEcho(libraries::iphlpapi, "IcmpSendEcho");

constinit LazyLibrary names(L"dnsapi.dll");
constinit LazyFunction<decltype(DnsQuery_W)> queryNames(names, "DnsQuery_W", ERROR_PROC_NOT_FOUND);
constinit LazyFunction<void WINAPI(void*, DNS_FREE_TYPE)> freeNames(names, "DnsFree");

bool HaveSockets()
{
    static const int status = [] {
        WSADATA data;
        return startSockets(MAKEWORD(2, 2), &data);
    }();
    SetLastError(static_cast<DWORD>(status));
    return status == 0;
}

// Work on a thread of its own, which may outlive the wait for it: whatever it uses belongs to the job.
struct Job {
    std::function<unsigned()> work;
    unsigned status = ERROR_TIMEOUT;
};

DWORD WINAPI RunJob(void* parameter)
{
    const std::unique_ptr<std::shared_ptr<Job>> job(static_cast<std::shared_ptr<Job>*>(parameter));
    (*job)->status = (*job)->work();
    return 0;
}

bool RunWithPatience(std::function<unsigned()> work)
{
    const auto job = std::make_shared<Job>(Job{std::move(work)});
    auto parameter = std::make_unique<std::shared_ptr<Job>>(job);
    const OwnedHandle thread(CreateThread(nullptr, 0, RunJob, parameter.get(), 0, nullptr));
    if (!thread)
        return false;
    parameter.release();
    const bool ended = WaitForSingleObject(thread.Get(), patience) == WAIT_OBJECT_0;
    const unsigned status = ended ? job->status : unsigned{ERROR_TIMEOUT};
    SetLastError(status);
    return status == 0;
}

unsigned LookUpHost(const CString& host, HostFacts& facts)
{
    ADDRINFOW hints = {};
    hints.ai_flags = AI_CANONNAME;
    hints.ai_socktype = SOCK_STREAM;
    ADDRINFOW* found = nullptr;
    if (const int status = getAddresses(host.w(), nullptr, &hints, &found))
        return static_cast<unsigned>(status);
    if (found->ai_canonname)
        facts.name = reinterpret_cast<const char16_t*>(found->ai_canonname);
    for (const ADDRINFOW* one = found; one; one = one->ai_next)
        (one->ai_family == AF_INET6 ? facts.addresses6 : facts.addresses4)
            .push_back(AddressText(one->ai_addr));
    freeAddresses(found);
    return 0;
}

unsigned LookUpAddress(std::uint32_t address, HostFacts& facts)
{
    sockaddr_in place = {};
    place.sin_family = AF_INET;
    place.sin_addr.s_addr = address;
    wchar_t name[NI_MAXHOST] = L"";
    const int status =
        getName(reinterpret_cast<sockaddr*>(&place), sizeof place, name, NI_MAXHOST, nullptr, 0, NI_NAMEREQD);
    if (status != 0)
        return static_cast<unsigned>(status);
    facts.name = reinterpret_cast<const char16_t*>(name);
    facts.addresses4 = {AddressText(reinterpret_cast<sockaddr*>(&place))};
    return 0;
}

// Other names stand only in the older of the two look-ups.
void AddAliases(HostFacts& facts)
{
    const hostent* entry = hostByName(ToUtf8(facts.name).c_str());
    for (char** alias = entry ? entry->h_aliases : nullptr; alias && *alias; ++alias)
        facts.aliases.push_back(FromAscii(*alias));
}

void KeepService(const servent& entry, ServiceFacts& facts)
{
    facts.port = _byteswap_ushort(static_cast<unsigned short>(entry.s_port));
    facts.name = FromAscii(entry.s_name);
    for (char** alias = entry.s_aliases; alias && *alias; ++alias)
        facts.aliases.push_back(FromAscii(*alias));
}

} // namespace

bool IsAddress4(View text, std::uint32_t& address)
{
    address = 0;
    for (unsigned part = 0; part < 4; ++part) {
        std::size_t digits = 0;
        unsigned value = 0;
        while (digits < text.size() && digits < 4 && IsDigit(text[digits]))
            value = value * 10 + static_cast<unsigned>(text[digits++] - u'0');
        const bool last = part == 3;
        if (digits == 0 || value > 255 || (last ? digits != text.size() : text.substr(digits, 1) != u"."))
            return false;
        address |= value << 8 * part;
        text.remove_prefix(last ? digits : digits + 1);
    }
    return true;
}

bool IsHostName(View text)
{
    std::size_t part = 0;
    for (const char16_t unit : text) {
        part = unit == u'.' ? 0 : part + 1;
        const bool known = IsLetterOrDigit(unit) || unit == u'-' || unit == u'_' || unit == u'.';
        if (!known || part > longestPart)
            return false;
    }
    return !text.empty() && text.size() <= longestName && text.front() != u'.';
}

bool FindHost(View host, HostFacts& facts)
{
    std::uint32_t address = 0;
    const bool isAddress = IsAddress4(host, address);
    if (!isAddress && !IsHostName(host)) {
        SetLastError(ERROR_INVALID_NAME);
        return false;
    }
    if (!HaveSockets())
        return false;
    const auto found = std::make_shared<HostFacts>();
    const CString name(host);
    const bool done = RunWithPatience([=] {
        const unsigned status = isAddress ? LookUpAddress(address, *found) : LookUpHost(name, *found);
        if (status == 0)
            AddAliases(*found);
        return status;
    });
    if (done)
        facts = *found;
    return done;
}

bool FindMailExchangers(View domain, std::vector<CString>& exchangers)
{
    if (!IsHostName(domain)) {
        SetLastError(ERROR_INVALID_NAME);
        return false;
    }
    struct Exchanger {
        unsigned preference;
        CString name;
    };
    const auto found = std::make_shared<std::vector<Exchanger>>();
    const CString name(domain);
    const bool done = RunWithPatience([=] {
        DNS_RECORDW* records = nullptr;
        const DNS_STATUS status = queryNames(name.w(), DNS_TYPE_MX, DNS_QUERY_STANDARD, nullptr,
                                             reinterpret_cast<PDNS_RECORD*>(&records), nullptr);
        for (const DNS_RECORDW* record = records; record; record = record->pNext)
            if (record->wType == DNS_TYPE_MX)
                found->push_back({record->Data.MX.wPreference,
                                  reinterpret_cast<const char16_t*>(record->Data.MX.pNameExchange)});
        if (records)
            freeNames(records, DnsFreeRecordList);
        return static_cast<unsigned>(status);
    });
    if (!done)
        return false;
    std::stable_sort(found->begin(), found->end(),
                     [](const Exchanger& a, const Exchanger& b) { return a.preference < b.preference; });
    for (const Exchanger& one : *found)
        exchangers.push_back(one.name);
    return true;
}

bool FindServicePort(View service, View protocol, ServiceFacts& facts)
{
    if (!HaveSockets())
        return false;
    const std::string protocolName = ToUtf8(protocol);
    const auto port = ParseInteger(service);
    const bool numbered = port && *port > 0 && *port < 0x10000;
    const servent* entry =
        numbered ? serviceByPort(_byteswap_ushort(static_cast<unsigned short>(*port)), protocolName.c_str())
        : IsHostName(service) ? serviceByName(ToUtf8(service).c_str(), protocolName.c_str())
                              : nullptr;
    if (!entry) {
        SetLastError(ERROR_NOT_FOUND);
        return false;
    }
    KeepService(*entry, facts);
    return true;
}

bool SendEcho(const EchoRequest& request, EchoAnswer& answer)
{
    const HANDLE echo = openEcho();
    if (!echo || echo == INVALID_HANDLE_VALUE)
        return false;
    std::vector<char> data(request.size, 'a');
    constexpr std::size_t spare = 64; // for the headers of an error's report
    std::vector<std::uint64_t> memory((sizeof(ICMP_ECHO_REPLY) + request.size + spare) / 8 + 1);
    IP_OPTION_INFORMATION options = {};
    options.Ttl = static_cast<UCHAR>(request.timeToLive);
    const DWORD replies =
        sendEcho(echo, request.address, data.data(), static_cast<WORD>(data.size()), &options, memory.data(),
                 static_cast<DWORD>(memory.size() * 8), request.timeout);
    const DWORD error = GetLastError();
    closeEcho(echo);
    const auto& reply = *reinterpret_cast<const ICMP_ECHO_REPLY*>(memory.data());
    answer.status = replies == 0 ? error : static_cast<unsigned>(reply.Status);
    if (replies > 0) {
        answer.address = reply.Address;
        answer.milliseconds = reply.RoundTripTime;
        answer.timeToLive = reply.Options.Ttl;
    }
    SetLastError(error);
    return true;
}
