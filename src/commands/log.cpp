#include "commands/log.h"

#include "config/ini_file.h"
#include "core/command_switches.h"
#include "engine/logs.h"
#include "engine/output.h"
#include "engine/results.h"
#include "lang/messages.h"
#include "platform/file_facts.h"
#include "text/words.h"

const CommandHelp logHelp = {
    u"Switches a log on or off, or writes a line into it.",
    u"LOG [/A | /E | /H] [ON | OFF]\n"
    u"LOG [/A | /E | /H] /W file\n"
    u"LOG [/A | /E | /H] text",
    u"/A  the log of everything: what the shell writes, and the commands\n"
    u"/E  the log of errors\n"
    u"/H  the log of typed lines\n"
    u"/W  write to this file from now on, and switch the log on\n"
    u"Without /A, /E and /H it is the log of commands. Without anything else the log's state is shown. A "
    u"text is written, with date and time, when the log is on. A log without a file of its own is in the "
    u"folder of the user's local data.",
    u"log /w d:\\logs\\today.log\n"
    u"log backup begins\n"
    u"log /e on\n"
    u"log off",
};

namespace {

constexpr std::u16string_view letters = u"AEHW";

struct LogChoice {
    char16_t letter;
    Log log;
    unsigned stateMessage;
    const char16_t* onSetting;
    const char16_t* nameSetting;
};

constexpr LogChoice choices[] = {
    {u'\0', Log::Commands, message::logState, u"LogOn", u"LogName"},
    {u'A', Log::Everything, message::outputLogState, u"LogAll", u"LogAllName"},
    {u'E', Log::Errors, message::errorLogState, u"LogErrors", u"LogErrorsName"},
    {u'H', Log::TypedLines, message::historyLogState, u"HistLogOn", u"HistLogName"},
};

bool Has(std::uint64_t switches, char16_t letter) { return (switches >> letters.find(letter) & 1) != 0; }

// Null when more than one is asked for.
const LogChoice* ChoiceOf(std::uint64_t switches)
{
    const LogChoice* chosen = &choices[0];
    for (const LogChoice& choice : choices) {
        if (choice.letter == u'\0' || !Has(switches, choice.letter))
            continue;
        if (chosen->letter != u'\0')
            return nullptr;
        chosen = &choice;
    }
    return chosen;
}

int Set(const char16_t* setting, std::u16string_view value)
{
    return SetINIDirective(Format(u"//%s=%s", setting, value));
}

// The file is opened at once, so that whoever asks for one that cannot be written hears of it here.
int Switch(const LogChoice& choice, bool on)
{
    CloseLogs();
    const int code = Set(choice.onSetting, on ? u"Yes" : u"No");
    if (code != result::success || !on)
        return code;
    return OpenLog(choice.log) ? result::success : result::error;
}

int WriteTo(const LogChoice& choice, std::u16string_view name)
{
    if (name.empty())
        return UsageError();
    const int code = Set(choice.nameSetting, Format(u"\"%s\"", FullPathName(WithoutQuotes(name))));
    return code == result::success ? Switch(choice, true) : code;
}

int ShowState(const LogChoice& choice)
{
    const bool on = IsLogOn(choice.log);
    const CString state = LoadMessage(choice.stateMessage, OnOffText(on));
    const CString file = on ? Format(u" (%s)", LogFileName(choice.log)) : CString();
    return PrintLine(state + file) ? result::success : MVError(0);
}

} // namespace

int Log_Command(CString& arguments)
{
    std::uint64_t switches = 0;
    if (const int code = ReadSwitches(arguments, letters, switches, SwitchPlace::Leading))
        return code;
    const LogChoice* choice = ChoiceOf(switches);
    arguments.Trim();
    if (!choice)
        return UsageError();
    if (Has(switches, u'W'))
        return WriteTo(*choice, arguments);
    if (arguments.empty())
        return ShowState(*choice);
    if (const auto on = ReadOnOff(arguments))
        return Switch(*choice, *on);
    return WriteLogLine(choice->log, arguments) ? result::success : result::error;
}
