#include "commands/break.h"

#include "core/command_switches.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "lang/messages.h"
#include "text/compare.h"

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
    if (arguments.empty()) {
        const CString state = LoadMessage(aGlobals.breakOff ? message::off : message::on);
        return CurrentSyntax().openQuotes || PrintLine(LoadMessage(message::breakState, state))
                   ? result::success
                   : MVError(0);
    }
    const bool on = EqualNoCase(arguments, u"ON");
    if (!on && !EqualNoCase(arguments, u"OFF"))
        return UsageError();
    aGlobals.breakOff = on ? 0 : 1;
    return result::success;
}
