#include "platform/console_keys.h"

#include <algorithm>
#include <atomic>
#include <utility>

#include <windows.h>

#include "platform/clock.h"
#include "platform/console_drawing.h"
#include "platform/console_handles.h"
#include "platform/turns.h"

namespace {

constexpr DWORD unitsPerRead = 8192; // more than a line that Windows' own prompt takes

// Set while the console's line input is at work; EndTypedLine looks at it from the event thread.
std::atomic<bool> typing{false};
std::atomic<bool> endRequested{false};

bool IsModifier(WORD key)
{
    switch (key) {
    case VK_SHIFT:
    case VK_CONTROL:
    case VK_MENU:
    case VK_CAPITAL:
    case VK_NUMLOCK:
    case VK_SCROLL:
    case VK_LWIN:
    case VK_RWIN: return true;
    default: return false;
    }
}

// Characters composed with Alt and the number pad come with the release of Alt.
bool IsKeyPress(const INPUT_RECORD& record)
{
    if (record.EventType != KEY_EVENT)
        return false;
    const KEY_EVENT_RECORD& key = record.Event.KeyEvent;
    if (!key.bKeyDown)
        return key.wVirtualKeyCode == VK_MENU && key.uChar.UnicodeChar != 0;
    return !IsModifier(key.wVirtualKeyCode);
}

// Buttons that went down and have not been asked for, and those that are down now. Of the thread that reads
// the console.
MouseClicks clicks;
DWORD buttonsDown = 0;

// The button that this event pressed, if it is that kind of event.
std::optional<MousePress> ReadPress(const INPUT_RECORD& record)
{
    if (record.EventType != MOUSE_EVENT)
        return std::nullopt;
    const MOUSE_EVENT_RECORD& mouse = record.Event.MouseEvent;
    if (mouse.dwEventFlags != 0 && mouse.dwEventFlags != DOUBLE_CLICK)
        return std::nullopt;
    constexpr DWORD buttons =
        FROM_LEFT_1ST_BUTTON_PRESSED | RIGHTMOST_BUTTON_PRESSED | FROM_LEFT_2ND_BUTTON_PRESSED;
    const DWORD pressed = mouse.dwButtonState & ~buttonsDown & buttons;
    buttonsDown = mouse.dwButtonState;
    if (pressed == 0)
        return std::nullopt;
    MousePress press;
    press.button = pressed & FROM_LEFT_1ST_BUTTON_PRESSED ? MouseButton::Left
                   : pressed & RIGHTMOST_BUTTON_PRESSED   ? MouseButton::Right
                                                          : MouseButton::Middle;
    press.twice = mouse.dwEventFlags == DOUBLE_CLICK;
    press.column = mouse.dwMousePosition.X;
    press.row = mouse.dwMousePosition.Y;
    return press;
}

void NoteClick(const MousePress& press)
{
    clicks.twice |= press.twice;
    clicks.left |= press.button == MouseButton::Left && !press.twice;
    clicks.middle |= press.button == MouseButton::Middle && !press.twice;
    clicks.right |= press.button == MouseButton::Right && !press.twice;
}

// Removes what is not a key press from the head of the buffer; true when a key press is next. With `pressed`
// it also stops behind the press of a button.
bool PassOtherEvents(HANDLE keyboard, std::optional<MousePress>* pressed = nullptr)
{
    INPUT_RECORD record;
    DWORD count = 0;
    while (PeekConsoleInputW(keyboard, &record, 1, &count) && count == 1) {
        if (IsKeyPress(record))
            return true;
        ReadConsoleInputW(keyboard, &record, 1, &count);
        if (const auto press = ReadPress(record)) {
            NoteClick(*press);
            if (pressed) {
                *pressed = press;
                return false;
            }
        }
    }
    return false;
}

// Waits until a key press is next in the buffer; false when waiting is impossible.
bool WaitForKeyPress(HANDLE keyboard, WaitPoll poll)
{
    poll();
    while (!PassOtherEvents(keyboard)) {
        DWORD woken = WAIT_FAILED;
        {
            const WaitingAside others;
            woken = WaitForSingleObjectEx(keyboard, INFINITE, TRUE);
        }
        if (woken != WAIT_OBJECT_0 && woken != WAIT_IO_COMPLETION)
            return false;
        DWORD waiting = 0;
        if (!GetNumberOfConsoleInputEvents(keyboard, &waiting))
            return false;
        poll();
    }
    return true;
}

// Tells the event thread that a line is being typed, for as long as it lives.
class Typing {
public:
    Typing()
    {
        endRequested = false;
        typing = true;
    }
    Typing(const Typing&) = delete;
    Typing& operator=(const Typing&) = delete;
    ~Typing() { typing = false; }
};

INPUT_RECORD EnterKey(bool down)
{
    INPUT_RECORD record = {};
    record.EventType = KEY_EVENT;
    record.Event.KeyEvent.bKeyDown = down;
    record.Event.KeyEvent.wRepeatCount = 1;
    record.Event.KeyEvent.wVirtualKeyCode = VK_RETURN;
    record.Event.KeyEvent.wVirtualScanCode = 0x1C;
    record.Event.KeyEvent.uChar.UnicodeChar = L'\r';
    return record;
}

// One piece of a line; true when more of it follows.
bool ReadPiece(CString& line, TypedLine& state)
{
    const std::size_t old = line.size();
    wchar_t* buffer = reinterpret_cast<wchar_t*>(line.Edit(old + unitsPerRead)) + old;
    DWORD units = 0;
    SetLastError(ERROR_SUCCESS);
    BOOL done = FALSE;
    DWORD reason = 0;
    {
        const WaitingAside others;
        done = ReadConsoleW(ConsoleKeyboard(), buffer, unitsPerRead, &units, nullptr);
        reason = GetLastError();
    }
    line.SetLength(old + (done ? units : 0));
    state = TypedLine::Complete;
    if (reason == ERROR_OPERATION_ABORTED)
        state = TypedLine::Cut;
    else if (!done)
        state = TypedLine::Ended;
    return state == TypedLine::Complete && units == unitsPerRead && line.back() != u'\n';
}

} // namespace

std::optional<KeyPress> ReadKey(WaitPoll poll)
{
    const HANDLE keyboard = ConsoleKeyboard();
    INPUT_RECORD record;
    DWORD count = 0;
    if (!keyboard || !WaitForKeyPress(keyboard, poll) || !ReadConsoleInputW(keyboard, &record, 1, &count))
        return std::nullopt;
    const KEY_EVENT_RECORD& key = record.Event.KeyEvent;
    return KeyPress{static_cast<char16_t>(key.uChar.UnicodeChar), key.wVirtualKeyCode, key.dwControlKeyState,
                    key.wVirtualScanCode};
}

ConsoleInput ReadKeyOrPress(WaitPoll poll, std::optional<std::uint64_t> milliseconds, bool mouse)
{
    constexpr std::uint64_t longestStep = 50; // queued calls may change what `poll` has to say
    const HANDLE keyboard = ConsoleKeyboard();
    ConsoleInput input;
    if (!keyboard)
        return input;
    const std::uint64_t end = milliseconds ? Ticks() + *milliseconds : 0;
    std::optional<MousePress> press;
    for (;;) {
        poll();
        if (PassOtherEvents(keyboard, mouse ? &press : nullptr)) {
            const std::optional<KeyPress> key = ReadKey(poll);
            if (key)
                input = {InputKind::Key, *key, {}};
            return input;
        }
        if (press)
            return {InputKind::Press, {}, *press};
        const std::uint64_t now = Ticks();
        if (milliseconds && now >= end)
            return {InputKind::TimedOut, {}, {}};
        const std::uint64_t step = milliseconds ? std::min(end - now, longestStep) : longestStep;
        const WaitingAside others;
        if (WaitForSingleObjectEx(keyboard, static_cast<DWORD>(step), TRUE) == WAIT_FAILED)
            return input;
    }
}

void WatchMouse(bool on)
{
    const HANDLE keyboard = ConsoleKeyboard();
    DWORD mode = 0;
    if (!keyboard || !GetConsoleMode(keyboard, &mode))
        return;
    constexpr DWORD quickEdit = ENABLE_QUICK_EDIT_MODE;
    mode = on ? (mode & ~quickEdit) | ENABLE_MOUSE_INPUT : (mode | quickEdit) & ~DWORD{ENABLE_MOUSE_INPUT};
    SetConsoleMode(keyboard, mode | ENABLE_EXTENDED_FLAGS);
    clicks = {};
    buttonsDown = 0;
}

MouseClicks TakeMouseClicks()
{
    if (ConsoleKeyboard())
        PassOtherEvents(ConsoleKeyboard());
    return std::exchange(clicks, MouseClicks());
}

bool IsKeyWaiting() { return ConsoleKeyboard() && PassOtherEvents(ConsoleKeyboard()); }

void DropWaitingKeys()
{
    if (!ConsoleKeyboard())
        return;
    FlushConsoleInputBuffer(ConsoleKeyboard());
    ForgetPeekedEvents();
}

TypedLine ReadTypedLine(CString& line, WaitPoll poll)
{
    line.Clear();
    // Nothing can be seen from here once the console's own input is at work, so enter it with the first key.
    if (!ConsoleKeyboard() || !WaitForKeyPress(ConsoleKeyboard(), poll))
        return TypedLine::Ended;
    TypedLine state = TypedLine::Complete;
    {
        const Typing now;
        poll();
        while (ReadPiece(line, state)) {
        }
    }
    if (endRequested.exchange(false) && state == TypedLine::Complete)
        state = TypedLine::Cut;
    if (state == TypedLine::Complete)
        line.TrimRight(u"\r\n");
    else
        line.Clear();
    return state;
}

bool EndTypedLine()
{
    constexpr DWORD step = 10;
    constexpr DWORD moment = 60;
    if (!typing)
        return false;
    for (DWORD waited = 0; typing && waited < moment; waited += step)
        Sleep(step);
    if (!typing)
        return true;
    endRequested = true;
    const INPUT_RECORD keys[] = {EnterKey(true), EnterKey(false)};
    DWORD written = 0;
    WriteConsoleInputW(ConsoleKeyboard(), keys, 2, &written);
    return true;
}
