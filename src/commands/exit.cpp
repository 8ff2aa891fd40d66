#include "commands/exit.h"

#include "commands/batch_control.h"
#include "core/command_switches.h"
#include "engine/results.h"
#include "engine/state.h"
#include "text/format.h"

const CommandHelp exitHelp = {
    u"Ends the shell, or the batch file.",
    u"EXIT [/B] [number]",
    u"/B  end the batch file only; outside a batch file the shell ends\n"
    u"The number becomes the exit code of the shell, or the error level that the batch file leaves. Without "
    u"it the error level stays as it is, and is the exit code.",
    u"exit\n"
    u"exit 3\n"
    u"exit /b %errorlevel",
};

int Exit_Command(CString& arguments)
{
    std::uint64_t flags = 0;
    if (const int code = ReadSwitches(arguments, u"B", flags, SwitchPlace::Leading))
        return code;
    TLS_VARIABLES& tls = Tls();
    if (arguments.Trim().empty())
        arguments = Format(u"%d", int{tls.errorLevel});
    if (flags != 0 && tls.Frame())
        return Quit_Command(arguments);
    Cancel_Command(arguments);
    if (tls.workerMustEnd)
        return result::abandonBatch; // a thread's EXIT ends the thread
    aGlobals.exitRequested = 1;
    aGlobals.exitCode = tls.errorLevel;
    return result::abandonBatch;
}
