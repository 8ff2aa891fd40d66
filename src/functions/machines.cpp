// This machine and others by name, their shares and services, and the groups of the user.
#include "functions/families.h"

#include <windows.h>

#include "functions/arguments.h"
#include "functions/file_answers.h"
#include "lang/errors.h"
#include "platform/account_names.h"
#include "platform/machine_names.h"
#include "platform/service_facts.h"

namespace {

constexpr unsigned allServers = 0xFFFFFFFF;

CString Joined(const std::vector<CString>& list)
{
    CString text;
    for (const CString& one : list)
        text.Append(text.empty() ? u"" : u" ").Append(one);
    return text;
}

// A machine without the service that shares things has nothing to tell.
bool SharesNothing(unsigned status)
{
    constexpr unsigned serviceNotStarted = 2114;
    return status == serviceNotStarted || status == ERROR_NOT_SUPPORTED;
}

int AnswerJoined(FunctionCall& call, bool domain)
{
    JoinedTo joined;
    if (const unsigned status = ReadJoinedTo(FileArgument(call.arguments), joined))
        return Refuse(status);
    return answer::ForeignText(call, joined.domain == domain ? joined.name : CString());
}

const char16_t* StateName(unsigned state)
{
    constexpr const char16_t* names[] = {
        u"", u"Stopped", u"Starting", u"Stopping", u"Running", u"Continuing", u"Pausing", u"Paused",
    };
    return state < std::size(names) ? names[state] : u"";
}

const char16_t* StartName(unsigned start)
{
    constexpr const char16_t* names[] = {u"Boot", u"System", u"Automatic", u"Manual", u"Disabled"};
    return start < std::size(names) ? names[start] : u"";
}

} // namespace

// @computername[n]: the name of this machine: 0 in the way of NetBIOS, 1 that of the host, 2 its domain, 3
// both.
int Computername_Function(FunctionCall& call)
{
    std::int64_t n = 0;
    if (!FileArgument(call.arguments).empty() && !ReadNumberArgument(call.arguments, n))
        return Refuse(errors::invalidNumber);
    return n < 0 || n > 3 ? Refuse(errors::invalidNumber)
                          : answer::ForeignText(call, ComputerName(static_cast<unsigned>(n)));
}

// @domain[machine], @workgroup[machine]: what it has joined; empty when it has joined the other kind.
int Domain_Function(FunctionCall& call) { return AnswerJoined(call, true); }
int Workgroup_Function(FunctionCall& call) { return AnswerJoined(call, false); }

// @group[group]: 1 when the user belongs to the group.
int Group_Function(FunctionCall& call)
{
    const CString group = FileArgument(call.arguments);
    if (group.empty())
        return Refuse(errors::missingArgument);
    const auto member = IsGroupMember(group);
    return member ? answer::Flag(call, *member) : Refuse(GetLastError());
}

// @server[machine[,n]]: 0 its name, 1 its comment, 2 its version of Windows, 3 its kind as hexadecimal bits.
int Server_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"s|n");
    if (arguments.Error())
        return arguments.Error();
    ServerFacts facts;
    const unsigned status = ReadServerFacts(FileArgument(arguments.Text(0)), facts);
    if (status != 0)
        return SharesNothing(status) ? answer::Text(call, {}) : Refuse(status);
    switch (arguments.Number(1)) {
    case 0: return answer::ForeignText(call, facts.name);
    case 1: return answer::ForeignText(call, facts.comment);
    case 2: return answer::ForeignText(call, Format(u"%u.%u", facts.major, facts.minor));
    case 3: return answer::ForeignText(call, Format(u"%08X", facts.type));
    default: return Refuse(errors::invalidNumber);
    }
}

// @enumservers[domain]: the machines of a domain or workgroup. @enumshares[machine[,1]]: what it shares, with
// 1 hidden ones, too.
int Enumservers_Function(FunctionCall& call)
{
    std::vector<CString> names;
    const unsigned status = ListServers(FileArgument(call.arguments), allServers, names);
    return status ? Refuse(status) : answer::ForeignText(call, Joined(names));
}

int Enumshares_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"s|n");
    if (arguments.Error())
        return arguments.Error();
    std::vector<CString> names;
    const unsigned status = ListShares(FileArgument(arguments.Text(0)), arguments.Number(1) != 0, names);
    return status && !SharesNothing(status) ? Refuse(status) : answer::ForeignText(call, Joined(names));
}

// @service[name[,n]]: 0 what it does (Running, Stopped ...), 1 the name that it is shown by, 2 how it is
// started, 3 its process, 4 its command, 5 the account that it runs as.
int Service_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"s|n");
    if (arguments.Error())
        return arguments.Error();
    const CString name = FileArgument(arguments.Text(0));
    if (name.empty())
        return Refuse(errors::missingArgument);
    ServiceState state;
    if (const unsigned status = ReadServiceState(name, state))
        return Refuse(status);
    switch (arguments.Number(1)) {
    case 0: return answer::ForeignText(call, StateName(state.state));
    case 1: return answer::ForeignText(call, state.displayName);
    case 2: return answer::ForeignText(call, StartName(state.start));
    case 3: return answer::Number(call, state.process);
    case 4: return answer::ForeignText(call, state.command);
    case 5: return answer::ForeignText(call, state.account);
    default: return Refuse(errors::invalidNumber);
    }
}
