#include "platform/console_typing.h"

#include <algorithm>
#include <deque>

#include <windows.h>

#include "platform/console_handles.h"
#include "platform/handle.h"
#include "platform/lazy_library.h"

namespace {

constexpr std::size_t unitsPerWrite = 1024; // the buffer takes only so many events at a time

INPUT_RECORD KeyEvent(char16_t unit, bool down)
{
    INPUT_RECORD record = {};
    record.EventType = KEY_EVENT;
    record.Event.KeyEvent.bKeyDown = down;
    record.Event.KeyEvent.wRepeatCount = 1;
    record.Event.KeyEvent.uChar.UnicodeChar = static_cast<wchar_t>(unit);
    return record;
}

INPUT_RECORD KeyEvent(const KeyPress& key, bool down)
{
    static LazyFunction<decltype(MapVirtualKeyW)> mapVirtualKey(libraries::user32, "MapVirtualKeyW");
    INPUT_RECORD record = KeyEvent(key.unit, down);
    record.Event.KeyEvent.wVirtualKeyCode = static_cast<WORD>(key.virtualKey);
    record.Event.KeyEvent.dwControlKeyState = key.modifiers;
    unsigned scanCode = key.scanCode;
    if (scanCode == 0 && key.virtualKey != 0)
        scanCode = mapVirtualKey(key.virtualKey, MAPVK_VK_TO_VSC);
    record.Event.KeyEvent.wVirtualScanCode = static_cast<WORD>(scanCode);
    return record;
}

bool Press(const KeyPress& key)
{
    const INPUT_RECORD records[] = {KeyEvent(key, true), KeyEvent(key, false)};
    DWORD written = 0;
    return WriteConsoleInputW(ConsoleKeyboard(), records, 2, &written) && written == 2;
}

// Keys that wait for their time. The thread that presses them ends when there are none left.
class LateKeys {
public:
    bool Add(const TypedKey& key)
    {
        const Guard guard(lock);
        keys.push_back(key);
        if (!running) {
            const OwnedHandle thread(CreateThread(nullptr, 0, PressAll, this, 0, nullptr));
            running = static_cast<bool>(thread);
        }
        return running;
    }
    bool Any()
    {
        const Guard guard(lock);
        return running;
    }
    void Clear()
    {
        const Guard guard(lock);
        keys.clear();
    }

private:
    class Guard {
    public:
        explicit Guard(SRWLOCK& of) : held(of) { AcquireSRWLockExclusive(&held); }
        ~Guard() { ReleaseSRWLockExclusive(&held); }
        Guard(const Guard&) = delete;
        Guard& operator=(const Guard&) = delete;

    private:
        SRWLOCK& held;
    };

    bool Next(std::uint64_t& delay)
    {
        const Guard guard(lock);
        running = !keys.empty();
        if (running)
            delay = keys.front().delay;
        return running;
    }
    // Keys may have been forgotten during the delay; then there is nothing to press.
    void PressFirst()
    {
        const Guard guard(lock);
        if (keys.empty())
            return;
        Press(keys.front().key);
        keys.pop_front();
    }
    static DWORD WINAPI PressAll(void* parameter)
    {
        auto* late = static_cast<LateKeys*>(parameter);
        std::uint64_t delay = 0;
        while (late->Next(delay)) {
            Sleep(static_cast<DWORD>(delay));
            late->PressFirst();
        }
        return 0;
    }

    SRWLOCK lock = SRWLOCK_INIT;
    std::deque<TypedKey> keys;
    bool running = false;
};
LateKeys lateKeys;

} // namespace

bool TypeIntoConsole(std::u16string_view text)
{
    const HANDLE keyboard = ConsoleKeyboard();
    if (!keyboard)
        return false;
    while (!text.empty()) {
        std::vector<INPUT_RECORD> keys;
        for (const char16_t unit : text.substr(0, unitsPerWrite))
            if (unit >= u' ') {
                keys.push_back(KeyEvent(unit, true));
                keys.push_back(KeyEvent(unit, false));
            }
        DWORD written = 0;
        const auto count = static_cast<DWORD>(keys.size());
        if (count > 0 && (!WriteConsoleInputW(keyboard, keys.data(), count, &written) || written != count))
            return false;
        text.remove_prefix(std::min(unitsPerWrite, text.size()));
    }
    return true;
}

bool TypeKeys(const std::vector<TypedKey>& keys)
{
    if (!ConsoleKeyboard())
        return false;
    bool late = lateKeys.Any();
    for (const TypedKey& key : keys) {
        late |= key.delay > 0;
        if (!(late ? lateKeys.Add(key) : Press(key.key)))
            return false;
    }
    return true;
}

void DropTypedKeys()
{
    lateKeys.Clear();
    DropWaitingKeys();
}
