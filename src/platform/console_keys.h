// Reading keys and lines from the console's keyboard.
//
// While nothing has been typed the waits let queued calls run and call `poll` behind each, which may throw to
// give up waiting: that is how a break gets through.
#pragma once

#include <cstdint>
#include <optional>

#include "text/cstring.h"

using WaitPoll = void (*)();

struct KeyPress {
    char16_t unit = 0;       // 0 for a key without a character
    unsigned virtualKey = 0; // VK_...
    unsigned modifiers = 0;  // the console's control key state
    unsigned scanCode = 0;
};

enum class MouseButton { Left, Right, Middle };
// A button that went down, and the place in the screen buffer, from 0.
struct MousePress {
    MouseButton button = MouseButton::Left;
    bool twice = false; // the second of a double click
    int column = 0;
    int row = 0;
};

enum class InputKind {
    None, // the keyboard cannot be read
    TimedOut,
    Key,
    Press
};
struct ConsoleInput {
    InputKind kind = InputKind::None;
    KeyPress key;
    MousePress press;
};
// Waits for a key, or with `mouse` also for a button of the mouse; a time of 0 only looks. WatchMouse must
// have been called for buttons to be seen. Without a time it waits for ever.
ConsoleInput ReadKeyOrPress(WaitPoll poll, std::optional<std::uint64_t> milliseconds, bool mouse);

// Waits for a key other than the mere modifiers; nothing when the keyboard cannot be read.
std::optional<KeyPress> ReadKey(WaitPoll poll);
// Whether such a key waits. It stays in the buffer.
bool IsKeyWaiting();
void DropWaitingKeys();

// Has the console report the mouse in place of selecting text with it, or not.
void WatchMouse(bool on);
// The buttons that went down since this was last asked for, as far as events of the mouse have been reached
// in the console's buffer.
struct MouseClicks {
    bool left = false;
    bool middle = false;
    bool right = false;
    bool twice = false;
};
MouseClicks TakeMouseClicks();

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
