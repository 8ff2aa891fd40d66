#include "commands/inkey.h"

#include <algorithm>

#include "commands/prompted_variable.h"
#include "console/key_codes.h"
#include "core/command_switches.h"
#include "engine/console_entry.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "expand/lists.h"
#include "platform/console_keys.h"
#include "platform/environment.h"
#include "text/compare.h"
#include "text/numbers.h"
#include "text/words.h"

const CommandHelp inkeyHelp = {
    u"Waits for a key and puts it into a variable.",
    u"INKEY [/C] [/D] [/K\"keys\"] [/M] [/P] [/Wseconds] [/X] [prompt] %%variable",
    u"/C  forgets what has been typed before\n"
    u"/D  takes digits only\n"
    u"/K  takes these keys only; names in brackets stand for keys without a character: /K\"yn[Esc][F1]\"\n"
    u"/M  a button of the mouse counts as a key: left @240, right @241, middle @242\n"
    u"/P  shows a star in place of the character\n"
    u"/W  waits so many seconds at most, which may have a fraction; 0 only looks whether a key waits\n"
    u"/X  the cursor stays behind the key\n"
    u"A key that types a character is that character, any other is @ and its scan code: F1 is @59, Enter "
    u"@28, the arrow up @72. When standard input is no console the next character is read from there. The "
    u"result, which is also the error level, is 0; 1 when the time ran out or the input is at its end, and "
    u"the variable is then left as it was; 2 for a mistake in the command.",
    u"inkey /k\"yn\" Delete all of them? %%answer\n"
    u"inkey /w10 /c Press a key: %%key",
};

const CommandHelp inputHelp = {
    u"Reads a line and puts it into a variable.",
    u"INPUT [/C] [/D] [/E] [/K\"characters\"] [/Ln] [/N] [/P] [/Wseconds] [/X] [prompt] %%variable",
    u"/C  forgets what has been typed before\n"
    u"/D  takes digits only\n"
    u"/E  the line begins with the variable's present value, to be changed\n"
    u"/K  takes these characters only\n"
    u"/L  takes so many characters at most\n"
    u"/N  in the colors of the screen, not those of the setting InputColors\n"
    u"/P  shows stars in place of what is typed\n"
    u"/W  waits so many seconds at most for the first key; 0 only looks whether one waits\n"
    u"/X  the cursor stays behind the line\n"
    u"An empty line removes the variable. When standard input is no console the next line is read from "
    u"there, without what may not be typed. The result, which is also the error level, is 0; 1 when the "
    u"time ran out or the input is at its end, and the variable is then left as it was; 2 for a mistake in "
    u"the command.",
    u"input Your name: %%name\n"
    u"input /e /l8 Name of the file: %%file\n"
    u"input /p /w30 Password: %%secret",
};

namespace {

constexpr int nothingTyped = 1;

// What the two commands are told.
struct Request {
    std::u16string_view letters; // of the switches that the command knows
    std::vector<CString> accepted;
    std::size_t longest = CString::npos;
    std::optional<std::uint64_t> milliseconds;
    bool forgetsTyped = false, edits = false, mouse = false, plainColors = false, hidden = false;
    bool lineEnd = true;
    CString prompt;
    CString variable;
};

bool TakeLength(std::u16string_view text, std::size_t& longest)
{
    const auto number = ParseInteger(text);
    if (!number || *number < 1)
        return false;
    longest = static_cast<std::size_t>(*number);
    return true;
}

bool TakeKeys(std::u16string_view list, std::vector<CString>& accepted)
{
    const auto codes = ReadKeyList(WithoutOuterQuotes(list));
    if (!codes || codes->empty())
        return false;
    accepted.insert(accepted.end(), codes->begin(), codes->end());
    return true;
}

bool TakeSwitch(Request& request, char16_t letter, std::u16string_view value)
{
    if (request.letters.find(letter) == request.letters.npos)
        return false;
    constexpr std::u16string_view withValue = u"KLW";
    if (!value.empty() && withValue.find(letter) == withValue.npos)
        return false;
    switch (letter) {
    case u'C': request.forgetsTyped = true; return true;
    case u'D': return TakeKeys(u"0123456789", request.accepted);
    case u'E': request.edits = true; return true;
    case u'K': return TakeKeys(value, request.accepted);
    case u'L': return TakeLength(value, request.longest);
    case u'M': request.mouse = true; return true;
    case u'N': request.plainColors = true; return true;
    case u'P': request.hidden = true; return true;
    case u'W': return (request.milliseconds = ParseDuration(value, 1000)).has_value();
    case u'X': request.lineEnd = false; return true;
    default: return false;
    }
}

// Switches stand in front; the prompt may hold what looks like some.
int TakeSwitches(Request& request, CString& text)
{
    CString one;
    while (TakeLeadingSwitch(text, one)) {
        const auto value = one.empty() ? std::nullopt : SwitchValue(one, one.view().substr(0, 1));
        if (!value || !TakeSwitch(request, UpperCase(one.front()), *value))
            return RefuseSwitch(one);
    }
    return result::success;
}

int ReadRequest(Request& request, CString& arguments)
{
    const int code = TakeSwitches(request, arguments);
    return code == result::success ? TakePromptAndVariable(arguments, request.prompt, request.variable)
                                   : code;
}

void BeginInput(const Request& request)
{
    if (request.forgetsTyped && IsConsole(0))
        DropWaitingKeys();
    if (!request.prompt.empty())
        Print(request.prompt);
}

int Store(InputOutcome outcome, const CString& variable, const CString& value)
{
    if (outcome != InputOutcome::Given)
        return nothingTyped;
    CString entry(variable);
    return SetEVariable(entry.Append(u'=').Append(value)) == 0 ? result::success : result::error;
}

// What the person sees of the key.
void ShowKey(const Request& request, InputOutcome outcome, const CString& code)
{
    const bool typed = outcome == InputOutcome::Given && code.size() == 1 && code.front() >= u' ';
    if (!IsConsole(0))
        return;
    CString shown = typed ? (request.hidden ? CString(u"*") : code) : CString();
    if (request.lineEnd)
        shown.Append(u"\r\n");
    if (!shown.empty())
        Print(shown);
}

} // namespace

int Inkey_Command(CString& arguments)
{
    Request request;
    request.letters = u"CDKMPWX";
    if (const int code = ReadRequest(request, arguments))
        return code;
    BeginInput(request);
    CString key;
    const InputOutcome outcome = ReadInputKey(key, {request.accepted, request.milliseconds, request.mouse});
    ShowKey(request, outcome, key);
    return Store(outcome, request.variable, key);
}

int Input_Command(CString& arguments)
{
    Request request;
    request.letters = u"CDEKLNPWX";
    if (const int code = ReadRequest(request, arguments))
        return code;
    BeginInput(request);
    LineRequest wanted;
    wanted.accepted = request.accepted;
    wanted.longest = request.longest;
    wanted.milliseconds = request.milliseconds;
    wanted.hidden = request.hidden;
    wanted.lineEnd = request.lineEnd;
    wanted.plainColors = request.plainColors;
    if (request.edits)
        ReadEnvironment(request.variable, wanted.text);
    CString line;
    const InputOutcome outcome = ReadInputLine(line, wanted);
    if (outcome == InputOutcome::TimedOut && request.lineEnd && IsConsole(0))
        Print(u"\r\n");
    return Store(outcome, request.variable, line);
}
