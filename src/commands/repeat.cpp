#include "commands/repeat.h"

#include "batch/do_values.h"
#include "core/command_switches.h"
#include "engine/break.h"
#include "engine/command_entry.h"
#include "engine/expansion_entry.h"
#include "engine/results.h"
#include "engine/state.h"
#include "text/words.h"

const CommandHelp repeatHelp = {
    u"Runs a command several times.",
    u"REPEAT number command",
    u"The number may be calculated: REPEAT 2*%n command. The command is expanded anew each time, and may be "
    u"a group in parentheses over several lines. GOTO, QUIT and their like leave the repetition; its result "
    u"and the error level are those of the command's last run, and success when the number is 0 or less.",
    u"repeat 3 beep\n"
    u"repeat 10 (echo %_time & delay 1)",
};

int Repeat_Command(CString& arguments)
{
    const Syntax syntax = CurrentSyntax();
    CString count = GetNthArgument(arguments, 0, syntax);
    const CString command(TailFromArgument(arguments, 1, syntax));
    if (command.empty())
        return UsageError();
    std::int64_t left = 0;
    if (!ReadNumber(count, left))
        return result::error;
    int code = result::success;
    for (; left > 0 && !EndsLine(code); --left) {
        ThrowIfBroken();
        code = Command_S(command, 0);
    }
    return code;
}
