#include "commands/on.h"

#include "batch/on_events.h"
#include "core/command_switches.h"
#include "engine/results.h"
#include "engine/state.h"
#include "text/compare.h"
#include "text/numbers.h"
#include "text/words.h"

const CommandHelp onHelp = {
    u"Sets a command for what may happen while the batch file runs.",
    u"ON BREAK | ERROR | ERRORMSG [command]\n"
    u"ON ERRORLEVEL [[operator] number command]\n"
    u"ON CONDITION [condition command]\n"
    u"ON CLOSE | LOGOFF | SHUTDOWN | SUSPEND | RESUME [command]\n"
    u"ON LBUTTON | MBUTTON | RBUTTON | DBLCLICK [command]",
    u"BREAK       Ctrl+C or Ctrl+Break, in place of the question whether the batch file is to end\n"
    u"ERROR       the shell reports an error; the message is not shown\n"
    u"ERRORMSG    the same, behind the message; with ERROR set as well it is ERROR that counts\n"
    u"ERRORLEVEL  a command set the error level to the number or more, or as an operator of IF says\n"
    u"CONDITION   the condition, as in IF, holds after a line of the batch file\n"
    u"CLOSE, LOGOFF, SHUTDOWN  the window closes, the user logs off, the computer shuts down; the system "
    u"grants a few seconds\n"
    u"SUSPEND, RESUME  the computer has been sent to sleep, or woken up\n"
    u"LBUTTON, MBUTTON, RBUTTON, DBLCLICK  a button of the mouse went down on the console\n"
    u"Without a command the shell does again what it did before. The command is expanded when it runs, and "
    u"may be a group in parentheses over several lines. It runs as a line of the batch file, as soon as the "
    u"command has ended during which it happened; GOTO and GOSUB work, and without a GOTO the batch file "
    u"goes on behind that command. Errors are those of the shell: a program that fails sets the error "
    u"level. All of this holds for this batch file alone, not for those that it calls, but for breaks and "
    u"the end of the shell: they end called files that have no such command, and then reach their caller's. "
    u"ON itself leaves the error level alone.",
    u"on break goto cleanup\n"
    u"on error (echo failed in line %_batchline & quit 1)\n"
    u"on errorlevel ge 2 gosub report\n"
    u"on condition not exist work.lock quit\n"
    u"on break",
};

namespace {

struct EventName {
    std::u16string_view name;
    OnEvent event;
};
constexpr EventName eventNames[] = {
    {u"BREAK", OnEvent::Break},       {u"CLOSE", OnEvent::Close},     {u"CONDITION", OnEvent::Condition},
    {u"DBLCLICK", OnEvent::DblClick}, {u"ERROR", OnEvent::Error},     {u"ERRORLEVEL", OnEvent::ErrorLevel},
    {u"ERRORMSG", OnEvent::ErrorMsg}, {u"LBUTTON", OnEvent::LButton}, {u"LOGOFF", OnEvent::Logoff},
    {u"MBUTTON", OnEvent::MButton},   {u"RBUTTON", OnEvent::RButton}, {u"RESUME", OnEvent::Resume},
    {u"SHUTDOWN", OnEvent::Shutdown}, {u"SUSPEND", OnEvent::Suspend},
};

// "3 command" or "ge 3 command"; a number may also come from a variable.
bool IsErrorLevelTest(const CString& text, const Syntax& syntax)
{
    auto isNumber = [](const CString& word) {
        return word.front() == u'%' || ParseInteger(word).has_value();
    };
    const int command = isNumber(GetNthArgument(text, 0, syntax)) ? 1 : 2;
    return isNumber(GetNthArgument(text, command - 1, syntax)) &&
           !TailFromArgument(text, command, syntax).empty();
}

} // namespace

int On_Command(CString& arguments)
{
    const Syntax syntax = CurrentSyntax();
    const Word word = NextWord(arguments, 0, syntax);
    const std::u16string_view name = arguments.view().substr(word.start, word.length);
    CString command = arguments.Substr(word.end()).Trim();
    for (const EventName& known : eventNames) {
        if (!EqualNoCase(known.name, name))
            continue;
        const bool tested = known.event == OnEvent::ErrorLevel || known.event == OnEvent::Condition;
        if (tested && !command.empty() && TailFromArgument(command, 1, syntax).empty())
            return UsageError();
        if (known.event == OnEvent::ErrorLevel && !command.empty() && !IsErrorLevelTest(command, syntax))
            return UsageError();
        SetOnCommand(*Tls().Frame(), known.event, std::move(command));
        return result::success;
    }
    return UsageError();
}
