#include "commands/detach.h"

#include <vector>

#include <windows.h>

#include "core/command_lookup.h"
#include "core/command_switches.h"
#include "core/executable_type.h"
#include "core/jobs.h"
#include "core/path_search.h"
#include "core/program_start.h"
#include "core/redirection_parser.h"
#include "core/separators.h"
#include "core/shell_line.h"
#include "engine/batch_entry.h"
#include "engine/expansion_entry.h"
#include "engine/help_entry.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "lang/messages.h"
#include "platform/file_facts.h"
#include "platform/process.h"
#include "platform/process_line.h"
#include "text/escapes.h"
#include "text/format.h"
#include "text/words.h"

const CommandHelp detachHelp = {
    u"Runs a program or command line without console and does not wait for it.",
    u"DETACH command",
    u"The whole rest of the line is detached, with its separators, pipes and redirections. What is detached "
    u"has no keyboard and no window. Its process ID is shown, and kept in %_detachpid.",
    u"detach backup.exe /all\n"
    u"detach dir /s c:\\ > list.txt & echo done >> log.txt",
};

namespace {

// One command, without group, redirection, pipe or separator.
bool IsSimple(const CString& text, const Syntax& syntax)
{
    if (text.front() == u'(' ||
        FindSeparator(text, 0, CommandShape::Plain, syntax).connector != Connector::None)
        return false;
    CString copy(text);
    std::vector<RedirectionRequest> requests;
    return ParseRedirections(copy, false, syntax, requests) == 0 && requests.empty();
}

// A program that needs no shell around it: fills `start`. An error that was reported ends the command.
int AimAtProgram(const CString& text, ProcessStart& start)
{
    const Syntax syntax = CurrentSyntax();
    if (!IsSimple(text, syntax) || FindInternalCommand(text, false) >= 0)
        return result::success;
    CString command(text);
    if (const int code = VariableExpansion(command); code != 0)
        return code;
    if (!IsSimple(command, syntax))
        return result::success;
    UnEscapeLine(command, syntax);
    const Word word = NextWord(command, 0, syntax);
    const CString file = SearchPaths(command.view().substr(word.start, word.length));
    if (file.empty() || GetExeType(file) == program_type::notAProgram)
        return result::success;
    if (!IsZoneAccepted(file))
        return result::error;
    start.program = SystemPath(file);
    start.commandLine = ProcessLine(file, command.view().substr(word.end()));
    start.creation = DETACHED_PROCESS;
    return result::success;
}

} // namespace

int Detach_Command(CString& arguments)
{
    const Syntax syntax = CurrentSyntax();
    const BUILTIN* row = nullptr;
    arguments.Trim();
    const bool help = arguments.size() == 2 && arguments[0] == syntax.switchChar && arguments[1] == u'?';
    if (help && FindInternalCommand(Tls().commandName, true, &row) >= 0)
        return NTInternalHelp(*row);
    if (arguments.empty())
        return UsageError();
    CString command(arguments);
    if (const int code = ExpandAliases(command); code != 0)
        return code;

    ProcessStart start;
    start.noInput = true;
    if (const int code = AimAtProgram(command, start); code != 0)
        return code;
    if (start.program.empty()) {
        // A hidden console: programs that the shell starts would otherwise open visible ones.
        start.program = aTexts.executable;
        start.commandLine = ShellLine(start.program, {}, u"/C", command);
        start.creation = CREATE_NO_WINDOW;
    }
    start.creation |= CREATE_DEFAULT_ERROR_MODE;
    CloseBatchFile();
    ChildProcess child;
    if (const unsigned code = child.Start(start); code != 0)
        return MVError(code, start.program);
    Tls().detachedProcess = child.Id();
    NoteJob(child, command);
    PrintLine(LoadMessage(message::processId, Format(u"%u", child.Id())));
    return result::success;
}
