// Drawing on the console cell by cell, and its input as raw events: what an editor on the console stands on.
// Places count from 0 in the screen buffer.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/console_keys.h"

// While it lives every key comes as a key, Ctrl+C as well, changes of size are told, and text at the end of a
// row stays there in place of going on in the next one. Modes and cursor are put back behind it. One at a
// time.
class RawConsole {
public:
    RawConsole();
    ~RawConsole();
    RawConsole(const RawConsole&) = delete;
    RawConsole& operator=(const RawConsole&) = delete;
    explicit operator bool() const { return usable; }

private:
    bool usable = false;
    unsigned long inputMode = 0;
    unsigned long outputMode = 0;
    int cursorHeight = -1;
};

enum class RawEventKind { None, TimedOut, Key, Press, Wheel, Resized };
struct RawEvent {
    RawEventKind kind = RawEventKind::None;
    KeyPress key;
    unsigned repeats = 1;
    MousePress press;
    int wheel = 0;
};
// As ReadKeyOrPress of console_keys.h, with wheel and size; buttons only as WatchMouse asked for them.
RawEvent ReadRawEvent(WaitPoll poll, std::optional<std::uint64_t> milliseconds);
// The event that waits, which goes on waiting; of kind TimedOut when none does.
RawEvent PeekRawEvent();
// Waits at most so long until something has been added to the buffer, or a queued call has run; false when
// waiting is impossible.
bool WaitForEvent(std::uint64_t milliseconds);
// For whoever has emptied the buffer.
void ForgetPeekedEvents();
// How many wait, about; 0 only when none does.
std::size_t WaitingEvents();

// False when the console refused.
bool MoveCursor(int row, int column);
// Height in percent of a cell, 0 hides the cursor; -1 when it cannot be read, and sets nothing.
int ReadCursorHeight();
void SetCursorHeight(int percent);
// Characters with colours at the cursor, with no heed to escape sequences.
bool WriteColored(std::u16string_view text, unsigned attributes);

// Text at the cursor as usual, going on in the next row at the end of one.
bool WriteWrapped(std::u16string_view text);

// Over what stands at the place, row after row; the cursor stays where it is.
bool WriteScreenText(int row, int column, std::u16string_view text, unsigned attributes);

struct ConsoleCell {
    char16_t unit = u' ';
    unsigned attributes = 7;
};
// Row by row; empty when the console refused.
std::vector<ConsoleCell> ReadConsoleCells(int row, int column, int rows, int columns);
bool WriteConsoleCells(int row, int column, int rows, int columns, const std::vector<ConsoleCell>& cells);
