// Reading keys and lines from the console's keyboard.
//
// While nothing has been typed the waits let queued calls run and call `poll` behind each, which may throw to
// give up waiting: that is how a break gets through.
#pragma once

#include <optional>

#include "text/cstring.h"

using WaitPoll = void (*)();

struct KeyPress {
    char16_t unit = 0;       // 0 for a key without a character
    unsigned virtualKey = 0; // VK_...
    unsigned modifiers = 0;  // the console's control key state
};

// Waits for a key other than the mere modifiers; nothing when the keyboard cannot be read.
std::optional<KeyPress> ReadKey(WaitPoll poll);
// Whether such a key waits. It stays in the buffer.
bool IsKeyWaiting();
void DropWaitingKeys();

enum class TypedLine {
    Complete,
    Cut,  // by Ctrl+C, or by EndTypedLine
    Ended // the console went away
};
// Reads a line through the console's own line input, which shows what is typed. The line end is not part of
// it. The console must be in the modes that ResetConsoleModes sets.
TypedLine ReadTypedLine(CString& line, WaitPoll poll);

// For any other thread: ends the line that is being typed in ReadTypedLine, if one is, unless the console
// does so by itself within a moment. False when none is; whoever asks has then set what `poll` looks at
// before a line can be typed.
bool EndTypedLine();
