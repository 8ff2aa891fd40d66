#include "commands/echo.h"

#include "core/command_switches.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "lang/messages.h"

const CommandHelp echoHelp = {
    u"Shows text, or shows or sets whether commands are shown before they run.",
    u"ECHO [ON | OFF]\n"
    u"ECHO text\n"
    u"ECHO.[text]",
    u"ON   show each command of the batch file before it runs\n"
    u"OFF  do not show them\n"
    u"Without text the present state is shown. A period, \"(\", \":\" or another delimiter directly behind "
    u"the name starts the text at once: ECHO. writes an empty line, and ECHO.ON the word ON. \"/?\" is text "
    u"like any other.",
    u"echo Hello, %username%\n"
    u"echo off\n"
    u"echo.\n"
    u"echo one ^& two",
};

const CommandHelp echosHelp = {
    u"Shows text without a line break behind it.",
    u"ECHOS text",
    u"What comes next goes on in the same row. The text is taken as ECHO takes it, but ON and OFF are text. "
    u"Blanks at its end are dropped; ^s is one that stays.",
    u"echos Working... & echo done\n"
    u"echos Name:^s & echo %username%\n"
    u"echos %_date > today.txt",
};

const CommandHelp echoerrHelp = {
    u"Writes text to standard error.",
    u"ECHOERR [text]",
    u"Messages that shall be seen when the output goes to a file or another program. The text is taken as "
    u"ECHO takes it, but ON and OFF are text; without text an empty line is written.",
    u"echoerr File missing: %1\n"
    u"echoerr Failed 2> log.txt",
};

const CommandHelp echoserrHelp = {
    u"Writes text to standard error without a line break behind it.",
    u"ECHOSERR text",
    u"As ECHOS, for what shall be seen when the output goes to a file or another program.",
    u"echoserr . & echoserr .",
};

const CommandHelp echoxHelp = {
    u"Shows the rest of the line as it stands.",
    u"ECHOX [text]",
    u"Nothing in the text is expanded, redirected or taken as a second command.",
    u"echox 100% & more > less\n"
    u"echox PATH is kept in %PATH%",
};

const CommandHelp echoxerrHelp = {
    u"Writes the rest of the line to standard error as it stands.",
    u"ECHOXERR [text]",
    u"Nothing in the text is expanded, redirected or taken as a second command.",
    u"echoxerr usage: tool <in> [out]",
};

namespace {

using Writer = bool (*)(std::u16string_view);

// What may part the name from its text, apart from blanks; a quote belongs to the text.
constexpr std::u16string_view textDelimiters = u" \t.,:;=([]+/\\";
// Of these, the ones behind which ON and OFF are not text.
constexpr std::u16string_view wordDelimiters = u" \t,;=";

std::u16string_view WithoutDelimiter(std::u16string_view arguments)
{
    if (!arguments.empty() && textDelimiters.find(arguments.front()) != std::u16string_view::npos)
        arguments.remove_prefix(1);
    return arguments;
}

bool IsAllBlank(std::u16string_view text)
{
    return text.find_first_not_of(u" \t") == std::u16string_view::npos;
}

// The echo state that the line changes: the running batch file's, else the prompt's.
void SetEcho(bool on)
{
    if (BATCH_FRAME* frame = Tls().Frame())
        frame->echo = on;
    else
        aGlobals.echo = on;
}

// ON or OFF as the whole argument; sets the state.
bool IsStateWord(std::u16string_view arguments)
{
    if (arguments.empty() || wordDelimiters.find(arguments.front()) == std::u16string_view::npos)
        return false;
    const auto on = ReadOnOff(CString(arguments).Trim(wordDelimiters));
    if (on)
        SetEcho(*on);
    return on.has_value();
}

int Write(Writer write, std::u16string_view arguments, bool newline)
{
    CString line(WithoutDelimiter(arguments));
    if (newline)
        line += u"\r\n";
    return line.empty() || write(line) ? result::success : MVError(0);
}

} // namespace

int Echo_Command(CString& arguments)
{
    if (IsAllBlank(arguments)) {
        return PrintLine(LoadMessage(message::echoState, OnOffText(QueryEcho()))) ? result::success
                                                                                  : MVError(0);
    }
    return IsStateWord(arguments) ? result::success : Write(Print, arguments, true);
}

int Echos_Command(CString& arguments) { return Write(Print, arguments, false); }

int Echoerr_Command(CString& arguments) { return Write(PrintError, arguments, true); }

int Echoserr_Command(CString& arguments) { return Write(PrintError, arguments, false); }

int Echox_Command(CString& arguments) { return Write(Print, arguments, true); }

int Echoxerr_Command(CString& arguments) { return Write(PrintError, arguments, true); }
