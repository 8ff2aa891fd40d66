#include "commands/for.h"

#include "batch/for_header.h"
#include "batch/for_loop.h"
#include "core/command_switches.h"
#include "engine/results.h"
#include "engine/state.h"

const CommandHelp forHelp = {
    u"Runs a command for every entry of a set.",
    u"FOR [/D] %%x IN (set) DO command\n"
    u"FOR /R [directory] %%x IN (set) DO command\n"
    u"FOR /L %%x IN (start,step,end) DO command\n"
    u"FOR /F [\"options\"] %%x IN (files | \"text\" | 'command') DO command",
    u"/D  wildcards stand for directories, not for files\n"
    u"/R  go through the directory and all below it\n"
    u"/L  count\n"
    u"/F  go through the lines of files, of a text or of a command's output. Options: tokens=1,3-5* "
    u"delims=xyz eol=c skip=n usebackq (then \"files\", 'text', `command`)\n"
    u"At the prompt the variable is written %x. %%~nx and the other modifiers of file names work as with "
    u"parameters. LEAVEFOR ends the loop.",
    u"for %%f in (*.txt) do type \"%%f\"\n"
    u"for /l %%n in (1,1,10) do echo %%n\n"
    u"for /f \"tokens=1,2 delims==\" %%a in (settings.ini) do set %%a=%%b",
};

int For_Command(CString& arguments)
{
    ForHeader header;
    if (!ReadForHeader(arguments, CurrentSyntax(), header))
        return header.refused.empty() ? UsageError() : MVError(errors::invalidSwitch, header.refused);
    return RunFor(header);
}
