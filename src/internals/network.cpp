// The network as this machine is set up for it.
#include "internals/families.h"

#include "internals/values.h"
#include "platform/network_adapters.h"

namespace {

template <typename List> void AppendList(CString& value, const List& list)
{
    for (const CString& text : list) {
        if (!value.empty())
            value.Append(u' ');
        value.Append(text);
    }
}

} // namespace

// The IPv4 addresses of all adapters that are in use.
bool Ip_Variable(CString& value)
{
    for (const NetworkAdapter& adapter : NetworkAdapters())
        if (adapter.up)
            AppendList(value, adapter.addresses4);
    return true;
}

bool Ipv6_Variable(CString& value)
{
    for (const NetworkAdapter& adapter : NetworkAdapters())
        if (adapter.up)
            AppendList(value, adapter.addresses6);
    return true;
}

// The number of the adapter that leads to the internet; they are counted from 0.
bool Ipadapter_Variable(CString& value)
{
    const int best = BestAdapter(NetworkAdapters());
    return best < 0 || AnswerNumber(value, best);
}

bool Ipadapters_Variable(CString& value) { return AnswerNumber(value, NetworkAdapters().size()); }
bool Iparpproxy_Variable(CString& value) { return AnswerFlag(value, ReadNetworkSettings().arpProxy); }
bool Ipdns_Variable(CString& value) { return AnswerFlag(value, ReadNetworkSettings().dns); }
bool Iprouting_Variable(CString& value) { return AnswerFlag(value, ReadNetworkSettings().routing); }

// The name server that is asked first, and those that follow.
bool Ipdnsserver_Variable(CString& value)
{
    const NetworkSettings settings = ReadNetworkSettings();
    return settings.dnsServers.empty() || AnswerText(value, settings.dnsServers.front());
}

bool Ipdnsother_Variable(CString& value)
{
    std::vector<CString> servers = ReadNetworkSettings().dnsServers;
    if (!servers.empty())
        servers.erase(servers.begin());
    AppendList(value, servers);
    return true;
}

// Transfers with servers: nothing is open.
bool Ftperror_Variable(CString& value) { return AnswerText(value, u""); }
bool Iftp_Variable(CString& value) { return AnswerFlag(value, false); }
bool Iftps_Variable(CString& value) { return AnswerFlag(value, false); }
bool Isftp_Variable(CString& value) { return AnswerFlag(value, false); }
