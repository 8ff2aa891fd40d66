// Network adapters by their number (from 0, as %_ipadapters counts them), machines by name or address, and
// services by name or port.
#include "functions/families.h"

#include <ctime>

#include <windows.h>

#include "functions/arguments.h"
#include "functions/file_answers.h"
#include "lang/errors.h"
#include "lang/function_messages.h"
#include "platform/network_adapters.h"
#include "platform/network_names.h"

namespace {

using View = std::u16string_view;

CString Joined(const std::vector<CString>& list, std::size_t from = 0)
{
    CString text;
    for (std::size_t n = from; n < list.size(); ++n)
        text.Append(n == from ? u"" : u" ").Append(list[n]);
    return text;
}

CString First(const std::vector<CString>& list, std::size_t n = 0)
{
    return n < list.size() ? list[n] : CString();
}

template <typename Text> int AnswerAdapter(FunctionCall& call, Text text)
{
    const FunctionArguments arguments(call, u"n");
    if (arguments.Error())
        return arguments.Error();
    const std::vector<NetworkAdapter> adapters = NetworkAdapters();
    const std::int64_t n = arguments.Number(0);
    if (n < 0 || n >= static_cast<std::int64_t>(adapters.size()))
        return Refuse(errors::noAdapter);
    return answer::ForeignText(call, text(adapters[static_cast<std::size_t>(n)]));
}

// The last address of the net, which all machines of it hear.
CString BroadcastOf(const CString& address, const CString& mask)
{
    std::uint32_t bits = 0;
    std::uint32_t maskBits = 0;
    if (!IsAddress4(address, bits) || !IsAddress4(mask, maskBits))
        return {};
    bits |= ~maskBits;
    return Format(u"%u.%u.%u.%u", bits & 0xFF, bits >> 8 & 0xFF, bits >> 16 & 0xFF, bits >> 24);
}

// "2026-11-21 09:05:00" local time; empty for 0.
CString LocalMoment(std::int64_t seconds)
{
    const std::time_t time = seconds;
    const std::tm* local = seconds > 0 ? std::localtime(&time) : nullptr;
    if (!local)
        return {};
    return Format(u"%04d-%02d-%02d %02d:%02d:%02d", local->tm_year + 1900, local->tm_mon + 1, local->tm_mday,
                  local->tm_hour, local->tm_min, local->tm_sec);
}

const char16_t* TypeName(unsigned type)
{
    switch (type) {
    case 6: return u"Ethernet";
    case 23: return u"PPP";
    case 24: return u"Loopback";
    case 71: return u"Wireless";
    case 131: return u"Tunnel";
    case 243:
    case 244: return u"Mobile";
    default: return u"Other";
    }
}

template <typename Text> int AnswerHost(FunctionCall& call, Text text)
{
    HostFacts facts;
    const CString host = FileArgument(call.arguments);
    if (host.empty())
        return Refuse(errors::missingArgument);
    return FindHost(host, facts) ? answer::ForeignText(call, text(facts)) : Refuse(errors::noHost);
}

template <typename Text> int AnswerService(FunctionCall& call, Text text)
{
    const FunctionArguments arguments(call, u"t|t");
    if (arguments.Error())
        return arguments.Error();
    ServiceFacts facts;
    const CString name = FileArgument(arguments.Text(0));
    const CString protocol = arguments.Has(1) ? FileArgument(arguments.Text(1)) : CString(u"tcp");
    return FindServicePort(name, protocol, facts) ? answer::ForeignText(call, text(facts))
                                                  : Refuse(GetLastError());
}

// The IPv4 address of a machine; false when it is not known.
bool AddressOf(View host, std::uint32_t& address)
{
    HostFacts facts;
    return IsAddress4(host, address) ||
           (FindHost(host, facts) && !facts.addresses4.empty() && IsAddress4(facts.addresses4[0], address));
}

// Reads "host[,milliseconds[,bytes[,hops]]]" and sends the request.
int Ping(const FunctionCall& call, EchoAnswer& answer)
{
    const FunctionArguments arguments(call, u"t|nnn");
    if (arguments.Error())
        return arguments.Error();
    EchoRequest request;
    auto take = [&](std::size_t n, unsigned& field, std::int64_t least, std::int64_t most) {
        const std::int64_t value = arguments.Number(n, field);
        field = static_cast<unsigned>(value);
        return value >= least && value <= most;
    };
    constexpr std::int64_t longestWait = 60000;
    constexpr std::int64_t largest = 65500; // what the system takes
    if (!take(1, request.timeout, 1, longestWait) || !take(2, request.size, 0, largest) ||
        !take(3, request.timeToLive, 1, 255))
        return Refuse(errors::invalidNumber);
    if (!AddressOf(FileArgument(arguments.Text(0)), request.address))
        return Refuse(errors::noHost);
    return SendEcho(request, answer) ? 0 : Refuse(GetLastError());
}

} // namespace

// What is known about adapter n. Lists are parted by blanks.
int Ipaddressn_Function(FunctionCall& call)
{
    return AnswerAdapter(call, [](const NetworkAdapter& adapter) { return First(adapter.addresses4); });
}
int Ipother_Function(FunctionCall& call)
{
    return AnswerAdapter(call, [](const NetworkAdapter& adapter) { return Joined(adapter.addresses4, 1); });
}
int Ipsubnet_Function(FunctionCall& call)
{
    return AnswerAdapter(call, [](const NetworkAdapter& adapter) { return First(adapter.masks4); });
}
int Ipbroadcast_Function(FunctionCall& call)
{
    return AnswerAdapter(call, [](const NetworkAdapter& adapter) {
        return BroadcastOf(First(adapter.addresses4), First(adapter.masks4));
    });
}
int Ipgateway_Function(FunctionCall& call)
{
    return AnswerAdapter(call, [](const NetworkAdapter& adapter) { return First(adapter.gateways); });
}
int Ipipv6n_Function(FunctionCall& call)
{
    return AnswerAdapter(call, [](const NetworkAdapter& adapter) { return Joined(adapter.addresses6); });
}
int Ipipv6ll_Function(FunctionCall& call)
{
    return AnswerAdapter(call, [](const NetworkAdapter& adapter) { return First(adapter.linkLocal6); });
}
int Ipotherl_Function(FunctionCall& call)
{
    return AnswerAdapter(call, [](const NetworkAdapter& adapter) { return Joined(adapter.linkLocal6, 1); });
}
int Ipzoneid_Function(FunctionCall& call)
{
    return AnswerAdapter(call, [](const NetworkAdapter& adapter) { return Format(u"%u", adapter.index6); });
}
int Ipnamen_Function(FunctionCall& call)
{
    return AnswerAdapter(call, [](const NetworkAdapter& adapter) { return adapter.name; });
}
int Ipdesc_Function(FunctionCall& call)
{
    return AnswerAdapter(call, [](const NetworkAdapter& adapter) { return adapter.description; });
}
int Ipphysical_Function(FunctionCall& call)
{
    return AnswerAdapter(call, [](const NetworkAdapter& adapter) { return adapter.physicalAddress; });
}
int Ipdns_Function(FunctionCall& call)
{
    return AnswerAdapter(call, [](const NetworkAdapter& adapter) { return Joined(adapter.dnsServers); });
}
int Ipdhcp_Function(FunctionCall& call)
{
    return AnswerAdapter(call, [](const NetworkAdapter& adapter) { return adapter.dhcpServer; });
}
int Ipdhcpenabled_Function(FunctionCall& call)
{
    return AnswerAdapter(call, [](const NetworkAdapter& adapter) { return adapter.dhcp ? u"1" : u"0"; });
}
int Ipobtained_Function(FunctionCall& call)
{
    return AnswerAdapter(call,
                         [](const NetworkAdapter& adapter) { return LocalMoment(adapter.leaseObtained); });
}
int Ipexpires_Function(FunctionCall& call)
{
    return AnswerAdapter(call,
                         [](const NetworkAdapter& adapter) { return LocalMoment(adapter.leaseExpires); });
}
int Ipstatus_Function(FunctionCall& call)
{
    return AnswerAdapter(call, [](const NetworkAdapter& adapter) { return adapter.up ? u"Up" : u"Down"; });
}
int Iptype_Function(FunctionCall& call)
{
    return AnswerAdapter(call, [](const NetworkAdapter& adapter) { return TypeName(adapter.type); });
}
int Ipwins_Function(FunctionCall& call)
{
    return AnswerAdapter(
        call, [](const NetworkAdapter& adapter) { return adapter.winsServers.empty() ? u"0" : u"1"; });
}
int Ipwinsserver_Function(FunctionCall& call)
{
    return AnswerAdapter(call, [](const NetworkAdapter& adapter) { return First(adapter.winsServers); });
}
int Ipwinsserver2_Function(FunctionCall& call)
{
    return AnswerAdapter(call, [](const NetworkAdapter& adapter) { return First(adapter.winsServers, 1); });
}

// @ipaddress[host]: its first address. @ipname[address]: the machine's name. @ipaliases[host]: other names.
int Ipaddress_Function(FunctionCall& call)
{
    std::uint32_t address = 0;
    const CString host = FileArgument(call.arguments);
    if (IsAddress4(host, address))
        return answer::ForeignText(call, host);
    return AnswerHost(call, [](const HostFacts& facts) {
        return facts.addresses4.empty() ? First(facts.addresses6) : facts.addresses4[0];
    });
}
int Ipname_Function(FunctionCall& call)
{
    return AnswerHost(call, [](const HostFacts& facts) { return facts.name; });
}
int Ipaliases_Function(FunctionCall& call)
{
    return AnswerHost(call, [](const HostFacts& facts) { return Joined(facts.aliases); });
}

// @ipport[service[,protocol]]: its port. @ipservicealiases[service[,protocol]]: its other names.
int Ipport_Function(FunctionCall& call)
{
    return AnswerService(call, [](const ServiceFacts& facts) { return Format(u"%u", facts.port); });
}
int Ipservicealiases_Function(FunctionCall& call)
{
    return AnswerService(call, [](const ServiceFacts& facts) { return Joined(facts.aliases); });
}

// @macaddress[host]: the physical address of a machine on the same net.
int Macaddress_Function(FunctionCall& call)
{
    std::uint32_t address = 0;
    if (!AddressOf(FileArgument(call.arguments), address))
        return Refuse(errors::noHost);
    return answer::ForeignText(call, PhysicalAddressOf(address));
}

// @mx[domain]: the machines that take its mail, the preferred first; empty when nobody knows of any.
int Mx_Function(FunctionCall& call)
{
    const CString domain = FileArgument(call.arguments);
    std::vector<CString> names;
    if (!IsHostName(domain))
        return Refuse(errors::noHost);
    FindMailExchangers(domain, names);
    return answer::ForeignText(call, Joined(names));
}

// @ping[host[,milliseconds[,bytes[,hops]]]]: milliseconds until it answers, -1 when it does not.
int Ping_Function(FunctionCall& call)
{
    EchoAnswer answer;
    if (const int error = Ping(call, answer))
        return error;
    return answer::Number(call, answer.status == 0 ? static_cast<std::int64_t>(answer.milliseconds) : -1);
}

// @pingr[...] with the same arguments: the whole answer, "address milliseconds hops"; empty when there is
// none.
int Pingr_Function(FunctionCall& call)
{
    EchoAnswer answer;
    if (const int error = Ping(call, answer))
        return error;
    if (answer.status != 0)
        return answer::ForeignText(call, {});
    return answer::ForeignText(call, Format(u"%u.%u.%u.%u %u %u", answer.address & 0xFF,
                                            answer.address >> 8 & 0xFF, answer.address >> 16 & 0xFF,
                                            answer.address >> 24, answer.milliseconds, answer.timeToLive));
}
