#include "commands/break.h"

#include "core/command_switches.h"
#include "engine/results.h"
#include "engine/state.h"
#include "lang/messages.h"

const CommandHelp breakHelp = {
    u"Shows or changes whether Ctrl+C breaks commands and batch files.",
    u"BREAK [ON | OFF]",
    u"OFF  Ctrl+C is passed over; programs that run get it as ever, and Ctrl+Break always counts\n"
    u"In .BAT and .CMD files BREAK alone shows nothing: there it is known as a command that does nothing. "
    u"The result is 0, and 2 for any other word.",
    u"break off\n"
    u"break on",
};

int Break_Command(CString& arguments)
{
    arguments.Trim();
    if (arguments.empty() && CurrentSyntax().openQuotes)
        return result::success;
    bool on = aGlobals.breakOff == 0;
    const int code = ShowOrSwitch(arguments, on, message::breakState);
    aGlobals.breakOff = on ? 0 : 1;
    return code;
}
