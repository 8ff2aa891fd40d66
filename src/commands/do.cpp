#include "commands/do.h"

#include "batch/do_header.h"
#include "batch/do_loop.h"
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
    u"commands "
    u"may stand in parentheses behind DO.",
    u"do n = 1 to 10\n"
    u"  echo %n\n"
    u"enddo\n"
    u"do file in *.txt (echo %file)",
};

int Do_Command(CString& arguments)
{
    DoHeader header;
    if (!ReadDoHeader(arguments, CurrentSyntax(), header))
        return UsageError();
    if (!header.hasBody && !Tls().Frame())
        return MVError(errors::batchOnly, u"DO");
    return RunDo(header);
}
