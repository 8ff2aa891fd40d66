#include "lifecycle/session_start.h"

#include <utility>
#include <vector>

#include "console/console_look.h"
#include "engine/command_entry.h"
#include "engine/inifile.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "engine/version.h"
#include "lang/messages.h"
#include "lifecycle/startup_files.h"
#include "platform/registry.h"
#include "text/format.h"

namespace {

struct Session {
    CString greeting;
    std::vector<CString> autoRun;
};

Session& Prepared()
{
    static Session session;
    return session;
}

} // namespace

void PrepareSession()
{
    if (aGlobals.transient)
        return;
    Session& session = Prepared();
    if (aGlobals.showsName && aIniFile.Copyright)
        session.greeting = Format(u"%s\r\n%s\r\n\r\n", LoadMessage(message::version, shell_version::text),
                                  LoadMessage(message::copyright));
    if (aIniFile.AutoRun && !aGlobals.noAutoRun)
        for (const RegistryRoot root : {RegistryRoot::LocalMachine, RegistryRoot::CurrentUser})
            if (const auto commands =
                    ReadRegistryText(root, u"Software\\Microsoft\\Command Processor", u"AutoRun");
                commands && !commands->empty())
                session.autoRun.push_back(*commands);
    FindStartupFileEarly();
}

void ShowSession()
{
    if (aGlobals.transient)
        return;
    if (!aGlobals.secondary)
        PlaceWindowAsSet();
    MakeWindowAsOpaqueAsSet();
    const CString greeting = std::exchange(Prepared().greeting, {});
    if (!greeting.empty() && IsConsole(0) && IsConsole(1))
        Print(greeting);
}

void RunAutoRun()
{
    for (const CString& commands : std::exchange(Prepared().autoRun, {})) {
        ForgetStartupFile(); // the commands may set another place for it
        Command_S(commands, 0);
    }
}
