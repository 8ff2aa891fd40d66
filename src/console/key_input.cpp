#include "console/key_input.h"

#include <algorithm>

#include "console/key_codes.h"
#include "engine/break.h"
#include "engine/console_entry.h"
#include "engine/inifile.h"
#include "engine/output.h"
#include "platform/clock.h"
#include "platform/console.h"
#include "platform/console_typing.h"
#include "text/compare.h"

namespace {

constexpr char16_t controlC = 3; // arrives as a key when a program has left the console in that mode
constexpr char16_t backspace = 8;
constexpr char16_t enter = 13;
constexpr char16_t escape = 27;

bool GoOnWithoutKey()
{
    ThrowIfBroken();
    return !IsKeyWaiting();
}

KeyFacts FactsOf(const KeyPress& key) { return {key.unit, key.virtualKey, key.modifiers, key.scanCode}; }

bool Accepts(const std::vector<CString>& accepted, const CString& code)
{
    if (accepted.empty())
        return true;
    return std::any_of(accepted.begin(), accepted.end(),
                       [&](const CString& each) { return EqualNoCase(each, code); });
}

InputOutcome ReadKeyFromConsole(CString& code, const KeyRequest& request)
{
    const std::uint64_t end = Ticks() + request.milliseconds.value_or(0);
    for (;;) {
        std::optional<std::uint64_t> left;
        if (request.milliseconds)
            left = end - std::min(end, Ticks());
        const ConsoleInput input = ReadKeyOrBreak(left, request.mouse);
        if (input.kind == InputKind::None)
            return InputOutcome::Ended;
        if (input.kind == InputKind::TimedOut)
            return InputOutcome::TimedOut;
        code = input.kind == InputKind::Press ? ButtonCode(input.press.button) : KeyCode(FactsOf(input.key));
        if (input.kind == InputKind::Press || Accepts(request.accepted, code))
            return InputOutcome::Given;
        WriteToConsole(u"\a");
    }
}

InputOutcome ReadKeyFromInput(CString& code, const KeyRequest& request)
{
    do {
        if (!AwaitInput(request.milliseconds))
            return InputOutcome::TimedOut;
        if (!ReadInputCharacter(code))
            return InputOutcome::Ended;
        if (code == u"\n")
            code = KeyCode({enter});
    } while (!Accepts(request.accepted, code));
    return InputOutcome::Given;
}

// A line typed key by key, for what the console's own line input cannot do. Backspace and Esc correct it.
class KeyedLine {
public:
    explicit KeyedLine(const LineRequest& of) : request(of) {}

    InputOutcome Read(CString& line);

private:
    bool Take(const KeyPress& key); // false at the end of the line
    void Add(char16_t unit);
    void Erase(std::size_t units);

    const LineRequest& request;
    CString text;
};

InputOutcome KeyedLine::Read(CString& line)
{
    for (const char16_t unit : request.text.view())
        Add(unit);
    for (;;) {
        const ConsoleInput input = ReadKeyOrBreak();
        if (input.kind != InputKind::Key)
            return InputOutcome::Ended;
        if (!Take(input.key))
            break;
    }
    line = text;
    if (request.lineEnd)
        WriteToConsole(u"\r\n");
    return InputOutcome::Given;
}

bool KeyedLine::Take(const KeyPress& key)
{
    if (key.unit == enter)
        return false;
    if (key.unit == backspace)
        Erase(std::min<std::size_t>(1, text.size()));
    else if (key.unit == escape)
        Erase(text.size());
    else if (const CString code = KeyCode(FactsOf(key)); code.size() == 1 && code.front() >= u' ')
        Add(key.unit); // letters with Alt type nothing
    return true;
}

void KeyedLine::Add(char16_t unit)
{
    if (text.size() >= request.longest || !Accepts(request.accepted, CString(1, unit))) {
        WriteToConsole(u"\a");
        return;
    }
    text.Append(unit);
    WriteToConsole(CString(1, request.hidden ? u'*' : unit));
}

void KeyedLine::Erase(std::size_t units)
{
    text.Truncate(text.size() - units);
    for (; units > 0; --units)
        WriteToConsole(u"\b \b");
}

InputOutcome ReadLineFromConsole(CString& line, const LineRequest& request)
{
    if (request.milliseconds && SleepWithPoll(*request.milliseconds, GoOnWithoutKey))
        return InputOutcome::TimedOut;
    const bool restricted = request.hidden || !request.accepted.empty() || request.longest != CString::npos ||
                            !request.lineEnd || request.plainColors;
    if (restricted) {
        const PassingColors colors(request.plainColors ? 0 : aIniFile.InputColors);
        return KeyedLine(request).Read(line);
    }
    TypeIntoConsole(request.text);
    return ReadConsoleLine(line, {}) ? InputOutcome::Given : InputOutcome::Ended;
}

// What may not be typed is passed over.
InputOutcome ReadLineFromInput(CString& line, const LineRequest& request)
{
    if (!AwaitInput(request.milliseconds))
        return InputOutcome::TimedOut;
    CString read;
    if (!ReadConsoleLine(read, {}))
        return InputOutcome::Ended;
    line.Clear();
    for (const char16_t unit : read.view())
        if (line.size() < request.longest && Accepts(request.accepted, CString(1, unit)))
            line.Append(unit);
    return InputOutcome::Given;
}

} // namespace

ConsoleInput ReadKeyOrBreak(std::optional<std::uint64_t> milliseconds, bool mouse)
{
    const ConsoleInput input = ReadKeyOrPress(ThrowIfBroken, milliseconds, mouse);
    if (input.kind == InputKind::Key && input.key.unit == controlC) {
        MarkBreak();
        ThrowIfBroken();
    }
    return input;
}

InputOutcome ReadInputKey(CString& code, const KeyRequest& request)
{
    if (!IsConsole(0))
        return ReadKeyFromInput(code, request);
    if (request.mouse)
        WatchMouse(true);
    return ReadKeyFromConsole(code, request);
}

InputOutcome ReadInputLine(CString& line, const LineRequest& request)
{
    return IsConsole(0) ? ReadLineFromConsole(line, request) : ReadLineFromInput(line, request);
}
