#include "platform/console_keys.h"

#include <atomic>

#include <windows.h>

#include "platform/console_handles.h"

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

// Removes what is not a key press from the head of the buffer; true when a key press is next.
bool PassOtherEvents(HANDLE keyboard)
{
    INPUT_RECORD record;
    DWORD count = 0;
    while (PeekConsoleInputW(keyboard, &record, 1, &count) && count == 1) {
        if (IsKeyPress(record))
            return true;
        ReadConsoleInputW(keyboard, &record, 1, &count);
    }
    return false;
}

// Waits until a key press is next in the buffer; false when waiting is impossible.
bool WaitForKeyPress(HANDLE keyboard, WaitPoll poll)
{
    poll();
    while (!PassOtherEvents(keyboard)) {
        const DWORD woken = WaitForSingleObjectEx(keyboard, INFINITE, TRUE);
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
    const BOOL done = ReadConsoleW(ConsoleKeyboard(), buffer, unitsPerRead, &units, nullptr);
    const DWORD reason = GetLastError();
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
    return KeyPress{static_cast<char16_t>(key.uChar.UnicodeChar), key.wVirtualKeyCode, key.dwControlKeyState};
}

bool IsKeyWaiting() { return ConsoleKeyboard() && PassOtherEvents(ConsoleKeyboard()); }

void DropWaitingKeys()
{
    if (ConsoleKeyboard())
        FlushConsoleInputBuffer(ConsoleKeyboard());
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
