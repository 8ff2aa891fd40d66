// Talking with the person at the console: declared here for every floor, defined in console/.
#pragma once

#include <string_view>

#include "text/cstring.h"

// Reads one line typed at the prompt; false at the end of the input. Without a console the lines come from
// standard input and neither prompt nor input is shown.
bool ReadConsoleLine(CString& line, std::u16string_view prompt);

// Asks with message `number` (its %1 replaced by `text`) and answers the upper-case letter pressed, one of
// `answers`; without a console the answer is `unattended`.
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
