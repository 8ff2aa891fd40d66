#include "platform/console_drawing.h"

#include <algorithm>

#include <windows.h>

#include "platform/clock.h"
#include "platform/console_handles.h"
#include "platform/text_output.h"
#include "platform/turns.h"
#include "text/cell_width.h"

namespace {

// Events that have been looked at. They leave the console's own buffer when all of them have been taken, or
// when the raw console ends: what is typed ahead stays there for whoever reads next. Of the thread that reads
// the console.
struct PeekedEvents {
    static constexpr DWORD most = 2048; // of a long paste: each reading costs the console time
    INPUT_RECORD records[most];
    DWORD count = 0;
    DWORD taken = 0;
};
PeekedEvents peeked;
DWORD heldButtons = 0;
DWORD rawOutputMode = 0; // of the screen while a RawConsole lives

void RemoveTaken(HANDLE keyboard)
{
    while (peeked.taken > 0) {
        DWORD done = 0;
        if (!ReadConsoleInputW(keyboard, peeked.records, peeked.taken, &done) || done == 0)
            break;
        peeked.taken -= std::min(done, peeked.taken);
    }
    peeked.count = peeked.taken = 0;
}

// The next event, which counts as taken; null when none waits.
const INPUT_RECORD* TakeRecord(HANDLE keyboard)
{
    if (peeked.taken == peeked.count) {
        RemoveTaken(keyboard);
        if (!PeekConsoleInputW(keyboard, peeked.records, PeekedEvents::most, &peeked.count))
            peeked.count = 0;
    }
    return peeked.taken < peeked.count ? &peeked.records[peeked.taken++] : nullptr;
}

bool IsModifier(WORD key)
{
    return (key >= VK_SHIFT && key <= VK_MENU) || key == VK_CAPITAL || key == VK_NUMLOCK ||
           key == VK_SCROLL || key == VK_LWIN || key == VK_RWIN;
}

// Characters composed with Alt and the number pad come with the release of Alt; those of the pad itself are
// digits only while they are composed.
bool ReadKeyEvent(const KEY_EVENT_RECORD& key, RawEvent& event)
{
    const bool composed = !key.bKeyDown && key.wVirtualKeyCode == VK_MENU && key.uChar.UnicodeChar != 0;
    if (!composed && (!key.bKeyDown || IsModifier(key.wVirtualKeyCode)))
        return false;
    const bool pad = key.wVirtualKeyCode >= VK_NUMPAD0 && key.wVirtualKeyCode <= VK_NUMPAD9;
    const bool altAlone = (key.dwControlKeyState & (LEFT_ALT_PRESSED | RIGHT_ALT_PRESSED)) != 0 &&
                          (key.dwControlKeyState & (LEFT_CTRL_PRESSED | RIGHT_CTRL_PRESSED)) == 0;
    if (key.bKeyDown && pad && altAlone)
        return false;
    event.kind = RawEventKind::Key;
    event.key = {static_cast<char16_t>(key.uChar.UnicodeChar), key.wVirtualKeyCode, key.dwControlKeyState,
                 key.wVirtualScanCode};
    event.repeats = std::max<unsigned>(key.wRepeatCount, 1);
    return true;
}

bool ReadMouseEvent(const MOUSE_EVENT_RECORD& mouse, RawEvent& event)
{
    event.press.column = mouse.dwMousePosition.X;
    event.press.row = mouse.dwMousePosition.Y;
    if (mouse.dwEventFlags == MOUSE_WHEELED) {
        event.kind = RawEventKind::Wheel;
        event.wheel = static_cast<SHORT>(HIWORD(mouse.dwButtonState)) / WHEEL_DELTA;
        return event.wheel != 0;
    }
    if (mouse.dwEventFlags != 0 && mouse.dwEventFlags != DOUBLE_CLICK)
        return false;
    const DWORD pressed = mouse.dwButtonState & ~heldButtons;
    heldButtons = mouse.dwButtonState;
    event.press.twice = mouse.dwEventFlags == DOUBLE_CLICK;
    event.press.button = (pressed & FROM_LEFT_1ST_BUTTON_PRESSED) != 0 ? MouseButton::Left
                         : (pressed & RIGHTMOST_BUTTON_PRESSED) != 0   ? MouseButton::Right
                                                                       : MouseButton::Middle;
    event.kind = RawEventKind::Press;
    return pressed != 0;
}

// False for what nobody wants to know.
bool Understand(const INPUT_RECORD& record, RawEvent& event)
{
    switch (record.EventType) {
    case KEY_EVENT: return ReadKeyEvent(record.Event.KeyEvent, event);
    case MOUSE_EVENT: return ReadMouseEvent(record.Event.MouseEvent, event);
    case WINDOW_BUFFER_SIZE_EVENT: event.kind = RawEventKind::Resized; return true;
    default: return false;
    }
}

// What remains of the time; INFINITE without one.
DWORD TimeLeft(bool limited, std::uint64_t end)
{
    if (!limited)
        return INFINITE;
    const std::uint64_t now = Ticks();
    return now >= end ? 0 : static_cast<DWORD>(std::min<std::uint64_t>(end - now, 0x7FFFFFFF));
}

SMALL_RECT Region(int row, int column, int rows, int columns)
{
    return {static_cast<SHORT>(column), static_cast<SHORT>(row), static_cast<SHORT>(column + columns - 1),
            static_cast<SHORT>(row + rows - 1)};
}

} // namespace

RawConsole::RawConsole()
{
    DWORD input = 0;
    DWORD output = 0;
    if (!ConsoleKeyboard() || !ConsoleScreen() || !GetConsoleMode(ConsoleKeyboard(), &input) ||
        !GetConsoleMode(ConsoleScreen(), &output))
        return;
    inputMode = input;
    outputMode = output;
    cursorHeight = ReadCursorHeight();
    constexpr DWORD cooked =
        ENABLE_PROCESSED_INPUT | ENABLE_LINE_INPUT | ENABLE_ECHO_INPUT | ENABLE_VIRTUAL_TERMINAL_INPUT;
    rawOutputMode = output & ~DWORD{ENABLE_WRAP_AT_EOL_OUTPUT};
    usable = SetConsoleMode(ConsoleKeyboard(), (input & ~cooked) | ENABLE_WINDOW_INPUT) &&
             SetConsoleMode(ConsoleScreen(), rawOutputMode);
    peeked.count = peeked.taken = 0;
}

RawConsole::~RawConsole()
{
    if (inputMode == 0 && outputMode == 0)
        return;
    RemoveTaken(ConsoleKeyboard());
    rawOutputMode = 0;
    SetConsoleMode(ConsoleKeyboard(), inputMode);
    SetConsoleMode(ConsoleScreen(), outputMode);
    SetCursorHeight(cursorHeight);
}

RawEvent ReadRawEvent(WaitPoll poll, std::optional<std::uint64_t> milliseconds)
{
    const HANDLE keyboard = ConsoleKeyboard();
    const std::uint64_t end = Ticks() + milliseconds.value_or(0);
    RawEvent event;
    for (;;) {
        poll();
        while (const INPUT_RECORD* record = TakeRecord(keyboard))
            if (Understand(*record, event))
                return event;
        const DWORD left = TimeLeft(milliseconds.has_value(), end);
        if (left == 0)
            return {RawEventKind::TimedOut, {}, 1, {}, 0};
        DWORD woken = WAIT_FAILED;
        {
            const WaitingAside others;
            woken = WaitForSingleObjectEx(keyboard, left, TRUE);
        }
        DWORD waiting = 0;
        if (woken == WAIT_FAILED || !GetNumberOfConsoleInputEvents(keyboard, &waiting))
            return {};
    }
}

RawEvent PeekRawEvent()
{
    RawEvent event;
    while (const INPUT_RECORD* record = TakeRecord(ConsoleKeyboard())) {
        const DWORD buttons = heldButtons;
        if (!Understand(*record, event))
            continue;
        heldButtons = buttons; // it will be looked at again
        --peeked.taken;
        return event;
    }
    event.kind = RawEventKind::TimedOut;
    return event;
}

bool WaitForEvent(std::uint64_t milliseconds)
{
    RemoveTaken(ConsoleKeyboard());
    const WaitingAside others;
    return WaitForSingleObjectEx(ConsoleKeyboard(), static_cast<DWORD>(milliseconds), TRUE) != WAIT_FAILED;
}

void ForgetPeekedEvents() { peeked.count = peeked.taken = 0; }

std::size_t WaitingEvents()
{
    return PeekRawEvent().kind == RawEventKind::TimedOut ? 0 : peeked.count - peeked.taken;
}

bool MoveCursor(int row, int column)
{
    return SetConsoleCursorPosition(ConsoleScreen(), {static_cast<SHORT>(column), static_cast<SHORT>(row)});
}

int ReadCursorHeight()
{
    CONSOLE_CURSOR_INFO info;
    if (!GetConsoleCursorInfo(ConsoleScreen(), &info))
        return -1;
    return info.bVisible ? static_cast<int>(info.dwSize) : 0;
}

void SetCursorHeight(int percent)
{
    CONSOLE_CURSOR_INFO info;
    if (percent < 0 || !GetConsoleCursorInfo(ConsoleScreen(), &info))
        return;
    info.bVisible = percent > 0;
    if (percent > 0)
        info.dwSize = static_cast<DWORD>(std::min(percent, 100));
    SetConsoleCursorInfo(ConsoleScreen(), &info);
}

bool WriteColored(std::u16string_view text, unsigned attributes)
{
    return SetConsoleTextAttribute(ConsoleScreen(), static_cast<WORD>(attributes)) &&
           WriteTextToConsole(ConsoleScreen(), text);
}

bool WriteWrapped(std::u16string_view text)
{
    DWORD mode = rawOutputMode;
    if (mode == 0 && !GetConsoleMode(ConsoleScreen(), &mode))
        return false;
    SetConsoleMode(ConsoleScreen(), mode | ENABLE_WRAP_AT_EOL_OUTPUT);
    const bool done = WriteTextToConsole(ConsoleScreen(), text);
    SetConsoleMode(ConsoleScreen(), mode);
    return done;
}

bool WriteScreenText(int row, int column, std::u16string_view text, unsigned attributes)
{
    DWORD done = 0;
    const COORD from = {static_cast<SHORT>(column), static_cast<SHORT>(row)};
    return WriteConsoleOutputCharacterW(ConsoleScreen(), reinterpret_cast<const wchar_t*>(text.data()),
                                        static_cast<DWORD>(text.size()), from, &done) &&
           FillConsoleOutputAttribute(ConsoleScreen(), static_cast<WORD>(attributes),
                                      static_cast<DWORD>(TextWidth(text)), from, &done);
}

std::vector<ConsoleCell> ReadConsoleCells(int row, int column, int rows, int columns)
{
    if (rows <= 0 || columns <= 0)
        return {};
    std::vector<CHAR_INFO> read(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns));
    SMALL_RECT region = Region(row, column, rows, columns);
    const COORD size = {static_cast<SHORT>(columns), static_cast<SHORT>(rows)};
    if (!ReadConsoleOutputW(ConsoleScreen(), read.data(), size, {0, 0}, &region))
        return {};
    std::vector<ConsoleCell> cells;
    cells.reserve(read.size());
    for (const CHAR_INFO& cell : read)
        cells.push_back({static_cast<char16_t>(cell.Char.UnicodeChar), cell.Attributes});
    return cells;
}

bool WriteConsoleCells(int row, int column, int rows, int columns, const std::vector<ConsoleCell>& cells)
{
    const auto count = static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns);
    if (rows <= 0 || columns <= 0 || cells.size() < count)
        return false;
    std::vector<CHAR_INFO> written(count);
    for (std::size_t i = 0; i < count; ++i) {
        written[i].Char.UnicodeChar = static_cast<wchar_t>(cells[i].unit);
        written[i].Attributes = static_cast<WORD>(cells[i].attributes);
    }
    SMALL_RECT region = Region(row, column, rows, columns);
    const COORD size = {static_cast<SHORT>(columns), static_cast<SHORT>(rows)};
    return WriteConsoleOutputW(ConsoleScreen(), written.data(), size, {0, 0}, &region) != FALSE;
}
