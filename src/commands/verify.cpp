#include "commands/verify.h"

#include "core/command_switches.h"
#include "engine/results.h"
#include "engine/state.h"
#include "lang/file_messages.h"
#include "lang/messages.h"

const CommandHelp verifyHelp = {
    u"Shows or changes whether commands that copy files read back what they have written.",
    u"VERIFY [ON | OFF]",
    u"ON  a copy is read back and compared with its source before it counts as made\n"
    u"The state belongs to this shell. The result is 0, and 2 for any other word.",
    u"verify\n"
    u"verify on",
};

int Verify_Command(CString& arguments)
{
    bool on = aGlobals.verifyCopies != 0;
    const int code = ShowOrSwitch(arguments, on, message::verifyState);
    aGlobals.verifyCopies = on ? 1 : 0;
    return code;
}
