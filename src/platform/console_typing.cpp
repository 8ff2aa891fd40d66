#include "platform/console_typing.h"

#include <algorithm>
#include <vector>

#include <windows.h>

#include "platform/console_handles.h"

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
