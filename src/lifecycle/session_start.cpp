#include "lifecycle/session_start.h"

#include "console/console_look.h"
#include "engine/command_entry.h"
#include "engine/inifile.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "engine/version.h"
#include "lang/messages.h"
#include "platform/registry.h"
#include "text/format.h"

void ShowSession()
{
    if (aGlobals.transient)
        return;
    if (!aGlobals.secondary)
        PlaceWindowAsSet();
    MakeWindowAsOpaqueAsSet();
    if (aGlobals.showsName && aIniFile.Copyright && IsConsole(0) && IsConsole(1))
        Print(Format(u"%s\r\n%s\r\n\r\n", LoadMessage(message::version, shell_version::text),
                     LoadMessage(message::copyright)));
}

void RunAutoRun()
{
    if (!aIniFile.AutoRun || aGlobals.noAutoRun || aGlobals.transient)
        return;
    for (const RegistryRoot root : {RegistryRoot::LocalMachine, RegistryRoot::CurrentUser}) {
        const auto commands = ReadRegistryText(root, u"Software\\Microsoft\\Command Processor", u"AutoRun");
        if (commands && !commands->empty())
            Command_S(*commands, 0);
    }
}
