#include "console/key_input.h"

#include <algorithm>

#include "console/key_codes.h"
#include "console/prompt_line.h"
#include "engine/break.h"
#include "engine/console_entry.h"
#include "engine/output.h"
#include "platform/clock.h"
#include "platform/console.h"
#include "text/compare.h"

namespace {

constexpr char16_t controlC = 3; // arrives as a key when a program has left the console in that mode
constexpr char16_t enter = 13;

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

InputOutcome ReadLineFromConsole(CString& line, const LineRequest& wanted)
{
    EditorRequest request;
    request.text = wanted.text;
    request.longest = wanted.longest;
    request.accepted = wanted.accepted;
    request.milliseconds = wanted.milliseconds;
    request.hidden = wanted.hidden;
    request.lineEnd = wanted.lineEnd;
    request.plainColors = wanted.plainColors;
    request.command = false;
    EditorAnswer answer;
    if (!EditConsoleLine(answer, request) || answer.outcome == EditorOutcome::Ended)
        return InputOutcome::Ended;
    if (answer.outcome == EditorOutcome::TimedOut)
        return InputOutcome::TimedOut;
    line = answer.line;
    return InputOutcome::Given;
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
