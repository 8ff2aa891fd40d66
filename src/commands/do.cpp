#include "commands/do.h"

#include <utility>

#include "batch/do_header.h"
#include "batch/do_loop.h"
#include "core/command_lookup.h"
#include "core/command_switches.h"
#include "engine/results.h"
#include "engine/state.h"

const CommandHelp doHelp = {
    u"Repeats a block of lines.",
    u"DO count | FOREVER\n"
    u"DO variable = start TO end [BY step]\n"
    u"DO WHILE condition\n"
    u"DO UNTIL condition\n"
    u"DO variable IN [files | @file | /L words | /P command | /C text]\n"
    u"  commands\n"
    u"ENDDO [WHILE condition | UNTIL condition]",
    u"/L  the words as they stand\n"
    u"/P  the lines that the command writes\n"
    u"/C  the characters of the text\n"
    u"WHILE is tested before each pass, UNTIL behind it. @CON stands for the lines of standard input.\n"
    u"ITERATE begins the next pass, LEAVE [n] leaves the loop, or n of them. In place of the lines the "
    u"commands may stand in parentheses behind DO, or with ENDDO on the same line. At the prompt the lines "
    u"are asked for up to ENDDO. The result is 0 once the loop has ended, whatever its commands answered, "
    u"and 2 when a number or condition makes no sense or the ENDDO is missing.",
    u"do n = 1 to 10\n"
    u"  echo %n\n"
    u"enddo\n"
    u"do file in *.txt (echo %file)\n"
    u"do 3 & beep & delay 1 & enddo",
};

int Do_Command(CString& arguments)
{
    DoHeader header;
    if (!ReadDoHeader(arguments, CurrentSyntax(), header))
        return UsageError();
    if (CString lines = std::exchange(Tls().loopBody, CString()); !header.hasBody && !lines.empty()) {
        header.body = lines;
        header.hasBody = true;
    }
    if (!header.hasBody && !Tls().Frame())
        return MVError(errors::batchOnly, u"DO");
    return RunDo(header);
}
