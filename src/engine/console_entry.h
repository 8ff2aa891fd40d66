// Talking with the person at the console: declared here for every floor, defined in console/.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "text/cstring.h"

// What a line is read for: lines for the shell itself have a history.
enum class LinePurpose { Answer, Command };
// Reads one line typed at the prompt; false at the end of the input. Without a console the lines come from
// standard input and neither prompt nor input is shown.
bool ReadConsoleLine(CString& line, std::u16string_view prompt, LinePurpose purpose = LinePurpose::Answer);
// The same with a text that a person at the console can edit.
bool EditConsoleText(CString& text, std::u16string_view prompt);

// What came of waiting for what somebody types.
enum class InputOutcome {
    Given,
    TimedOut,
    Ended // the input is at its end
};

// A key for INKEY: `code` is its character, or "@" and a number (console/key_codes.h). Without a console it
// is the next character of standard input. Other keys than the accepted ones are refused with a beep.
struct KeyRequest {
    std::vector<CString> accepted;             // codes; none means all
    std::optional<std::uint64_t> milliseconds; // none waits for ever
    bool mouse = false;                        // a button counts as a key
};
InputOutcome ReadInputKey(CString& code, const KeyRequest& request);

// A line for INPUT. A value that is to be edited stands in `text`. Only here is it decided what reads the
// line.
struct LineRequest {
    CString text;
    std::size_t longest = CString::npos;       // units
    std::vector<CString> accepted;             // characters; none means all
    std::optional<std::uint64_t> milliseconds; // until the first key; none waits for ever
    bool hidden = false;                       // stars are shown
    bool lineEnd = true;                       // the cursor goes to the next line behind it
    bool plainColors = false;                  // not the setting InputColors
};
InputOutcome ReadInputLine(CString& line, const LineRequest& request);

// The next character of redirected standard input, a line end as "\n"; false at the end of the input.
bool ReadInputCharacter(CString& character);
// Whether redirected standard input has something, or its end, to read within the time. Files always have.
bool AwaitInput(std::optional<std::uint64_t> milliseconds);

// Whether there is somebody, or something, to answer a question: a person at the console, or the pipe or file
// that a command has for its standard input ("echo y| del *.*"). The lines that the shell itself is given are
// no answers.
bool MayAsk();
// Asks with message `number` (its %1 replaced by `text`) and answers the upper-case letter pressed, one of
// `answers`, or the first such letter that begins a line of the input; else the answer is `unattended`.
char16_t QueryInputChar(unsigned number, std::u16string_view text, std::u16string_view answers,
                        char16_t unattended);

// Waits for any key; false when a person is not there to press it.
bool WaitForKey();

// Appends a typed line to the history by the rules of the history settings; `force` skips the rules.
void AddToHistory(CString& line, bool force = false);

// The prompt as it is shown now: PROMPT's metacharacters resolved.
CString ExpandPrompt(std::u16string_view pattern);

// Sets the window title to the command that runs, or back to the standing title when `command` is empty.
void UpdateTitleAndIcon(std::u16string_view command);

// Switches the console's escape sequences on or off as the settings say, and its usual modes on.
void ConsoleANSI();

// Gives the console and queued calls a turn; a pending break is thrown from here.
void tty_yield();
