#include "commands/version.h"

#include <movacore_version.h>

#include "core/command_switches.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/version.h"
#include "lang/messages.h"
#include "platform/system_version.h"
#include "text/encoding.h"

const CommandHelp verHelp = {
    u"Shows the versions of the shell and of Windows.",
    u"VER [/R]",
    u"/R  also the build of the shell, and the update level and release of Windows",
    u"ver\n"
    u"ver /r",
};

int Ver_Command(CString& arguments)
{
    std::uint64_t flags = 0;
    if (const int code = ReadSwitches(arguments, u"R", flags))
        return code;
    arguments.Trim();
    if (!arguments.empty())
        return UsageError();
    const SystemVersion system = ReadSystemVersion();
    CString shell = LoadMessage(message::version, shell_version::text);
    CString number = Format(u"%u.%u.%u", system.major, system.minor, system.build);
    if (flags != 0) {
        shell += Format(u" (Movacore %s)", FromAscii(MOVACORE_VERSION_TEXT));
        number += Format(u".%u", system.revision);
        if (!system.release.empty())
            number += Format(u" (%s)", system.release);
    }
    const CString windows = LoadMessage(message::windowsVersion, number);
    return Print(Format(u"%s\r\n%s\r\n", shell, windows)) ? result::success : MVError(0);
}
