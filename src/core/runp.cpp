// What kind of command it is: a group, a drive, an internal command, a URL, a directory, a program.
#include <utility>

#include "core/command_lookup.h"
#include "core/external.h"
#include "engine/break.h"
#include "engine/command_entry.h"
#include "engine/console_entry.h"
#include "engine/directory_entry.h"
#include "engine/help_entry.h"
#include "engine/inifile.h"
#include "engine/state.h"
#include "expand/lists.h"
#include "lang/errors.h"
#include "platform/file_facts.h"
#include "text/block_scanner.h"
#include "text/compare.h"
#include "text/escapes.h"
#include "text/words.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;
constexpr int deepestUnknownCommand = 10;

int RunGroup(CString& command, const Syntax& syntax)
{
    const int code = CompleteBlock(command);
    if (code != result::success)
        return code;
    const std::size_t end = FindBlockEnd(command, 0, syntax);
    if (end == npos || command.view().find_first_not_of(u" \t\r\n)", end) != npos)
        return Tls().errorLevel = MVError(errors::syntax, command);
    return Command_S(command.Substr(1, end - 1), 0);
}

bool IsDriveChange(std::u16string_view command, const Syntax& syntax)
{
    return command.size() >= 2 && IsAsciiLetter(command[0]) && command[1] == u':' &&
           (command.size() == 2 || IsDelimiter(command[2], syntax));
}

bool NamesDirectory(std::u16string_view name)
{
    return !name.empty() && (name.back() == u'\\' || (name.back() == u'/' && name.size() > 1));
}

// "name=value command": the assignment holds for the one command.
int RunWithAssignment(const CString& assignment, std::u16string_view rest)
{
    CString set(u"SET ");
    Command_S(u"SETLOCAL", 0);
    int code = Command_S(set.Append(assignment), 0);
    if (code == result::success)
        code = Command_S(CString(rest), 0);
    Command_S(u"ENDLOCAL", 0);
    return code;
}

int RunUnknownCommandAlias(std::u16string_view command)
{
    TLS_VARIABLES& tls = Tls();
    if (tls.unknownCommandDepth >= deepestUnknownCommand)
        return MVError(errors::unknownCommandLoop, command);
    ++tls.unknownCommandDepth;
    CString line(u"UNKNOWN_CMD ");
    const int code = Command_S(line.Append(command), line_flags::debugger);
    --Tls().unknownCommandDepth;
    return code;
}

// Nothing of that name was found anywhere.
int RunUnknown(CString& command, const CString& name, const Syntax& syntax)
{
    const CString bare = WithoutQuotes(name);
    if (aIniFile.AutoCDD && QueryIsDirectory(bare))
        return ChangeDirectory(name);
    const std::size_t equals = name.Find(u'=');
    if (equals != npos && equals > 0 && name.front() != u'"')
        return RunWithAssignment(name, command.view().substr(NextWord(command, 0, syntax).end()));
    CString value;
    if (GetAlias(u"UNKNOWN_CMD", value))
        return RunUnknownCommandAlias(command);
    return Tls().errorLevel = MVError(errors::unknownCommand, bare);
}

// The command's first word as it is looked for on the path: escapes resolved, switches not part of it.
CString ProgramName(std::u16string_view command, const Syntax& syntax)
{
    CString name = GetNthArgument(command, 0, syntax);
    UnEscapeLine(name, syntax);
    return name;
}

// "/?" asks for help where it is all that stands behind the name, and anywhere for most commands.
bool AsksForHelp(std::u16string_view arguments, bool anywhere, const Syntax& syntax)
{
    const char16_t request[] = {syntax.switchChar, u'?'};
    const std::size_t at = arguments.find(std::u16string_view(request, 2));
    if (at == npos)
        return false;
    if (!anywhere)
        return arguments.find_first_not_of(u" \t") == at &&
               arguments.find_first_not_of(u" \t", at + 2) == npos;
    for (Word word = NextWord(arguments, 0, syntax); word.length > 0;
         word = NextWord(arguments, word.end(), syntax))
        if (arguments.substr(word.start, word.length) == std::u16string_view(request, 2))
            return true;
    return false;
}

bool IsEcho(const BUILTIN& row) { return BeginsNoCase(row.name, u"ECHO"); }

// What the handler's answer means for the error level and for the line.
int TakeResult(int code, unsigned flags)
{
    TLS_VARIABLES& tls = Tls();
    if (code == result::returned)
        return result::abandonBatch;
    if (code == result::fromSubroutine) {
        tls.lastInternalResult = tls.subroutineResult;
        return result::success;
    }
    const bool marks = EndsLine(code) || code == result::handled || code == result::keepErrorLevel;
    tls.lastInternalResult = marks ? result::success : code;
    if (code == result::keepErrorLevel)
        return result::success;
    if ((flags & command_flags::setsErrorLevel) != 0 && !EndsLine(code))
        tls.errorLevel = code == result::handled ? result::success : code;
    return code;
}

// Text that found no room in its file is an error of the command, of those too that do not look.
int TakeOutputError(int code)
{
    TLS_VARIABLES& tls = Tls();
    const unsigned failed = std::exchange(tls.outputError, 0u);
    if (failed == 0 || EndsLine(code))
        return code;
    const bool told = code != result::success && code != result::handled && code != result::keepErrorLevel;
    return tls.errorLevel = told ? code : MVError(failed);
}

// What the command answers; one whose listing somebody has left has done its work.
template <typename Handler, typename Argument> int AnswerOf(Handler handler, Argument&& argument)
{
    try {
        return handler(std::forward<Argument>(argument));
    } catch (const ListingLeft&) {
        return result::success;
    }
}

} // namespace

int RunInternalCommand(const BUILTIN& row, CString& arguments)
{
    const Syntax syntax = CurrentSyntax();
    const unsigned flags = CommandFlags(row);
    TLS_VARIABLES& tls = Tls();
    tls.commandName = row.name;
    if (!IsEcho(row) && AsksForHelp(arguments, (flags & command_flags::help) != 0, syntax))
        return AnswerOf(NTInternalHelp, row);
    if ((flags & command_flags::batchOnly) != 0 && !tls.Frame())
        return tls.errorLevel = MVError(errors::batchOnly, row.name);
    if (!IsEcho(row))
        arguments.TrimLeft();
    tls.outputError = 0;
    return TakeResult(TakeOutputError(AnswerOf(row.handler, arguments)), flags);
}

int Runp(CString& command, bool)
{
    const Syntax syntax = CurrentSyntax();
    if (command.empty())
        return result::success;
    if (command.front() == u'(')
        return RunGroup(command, syntax);
    if (IsDriveChange(command, syntax))
        return ChangeDrive(command.front());

    const BUILTIN* row = nullptr;
    std::size_t nameEnd = 0;
    if (FindInternalCommand(command, false, &row, &nameEnd) >= 0) {
        if (Tls().typedLine && !Tls().Frame())
            UpdateTitleAndIcon(command);
        CString arguments = command.Substr(nameEnd);
        const unsigned flags = CommandFlags(*row);
        if ((flags & command_flags::expand) != 0 && (flags & command_flags::keepText) == 0)
            UnEscapeLine(arguments, syntax);
        return RunInternalCommand(*row, arguments);
    }

    CString name = ProgramName(command, syntax);
    if (name == u"-" || (aIniFile.AutoCDD && NamesDirectory(WithoutQuotes(name))))
        return ChangeDirectory(name);
    const CString asWritten(command);
    UnEscapeLine(command, syntax);
    int code = result::success;
    if (RunExternal(command, name, !Tls().pipeChild, code))
        return code;
    command = asWritten;
    return RunUnknown(command, name, syntax);
}

int ExecuteInternalCommand(int (*handler)(CString&), const char16_t* arguments)
{
    CString text(arguments);
    return AnswerOf(handler, text);
}
