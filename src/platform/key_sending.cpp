#include "platform/key_sending.h"

#include <vector>

#include <windows.h>

#include "platform/desktop.h"
#include "platform/lazy_library.h"

namespace {

constinit LazyFunction<decltype(SendInput)> sendInput(libraries::user32, "SendInput");
constinit LazyFunction<decltype(MapVirtualKeyW)> mapVirtualKey(libraries::user32, "MapVirtualKeyW");

struct Modifier {
    DWORD state;
    WORD virtualKey;
};
constexpr Modifier modifiers[] = {
    {LEFT_CTRL_PRESSED | RIGHT_CTRL_PRESSED, VK_CONTROL},
    {LEFT_ALT_PRESSED | RIGHT_ALT_PRESSED, VK_MENU},
    {SHIFT_PRESSED, VK_SHIFT},
};

bool IsExtended(WORD virtualKey)
{
    return (virtualKey >= VK_PRIOR && virtualKey <= VK_DOWN) || virtualKey == VK_INSERT ||
           virtualKey == VK_DELETE || virtualKey == VK_NUMLOCK;
}

INPUT KeyInput(WORD virtualKey, bool down)
{
    INPUT input = {};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = virtualKey;
    input.ki.wScan = static_cast<WORD>(mapVirtualKey(virtualKey, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = (down ? 0 : DWORD{KEYEVENTF_KEYUP}) |
                       (IsExtended(virtualKey) ? DWORD{KEYEVENTF_EXTENDEDKEY} : DWORD{0});
    return input;
}

INPUT CharacterInput(char16_t unit, bool down)
{
    INPUT input = {};
    input.type = INPUT_KEYBOARD;
    input.ki.wScan = static_cast<WORD>(unit);
    input.ki.dwFlags = KEYEVENTF_UNICODE | (down ? 0 : DWORD{KEYEVENTF_KEYUP});
    return input;
}

bool Send(std::vector<INPUT>& inputs)
{
    const auto count = static_cast<UINT>(inputs.size());
    return sendInput(count, inputs.data(), static_cast<int>(sizeof(INPUT))) == count;
}

} // namespace

bool SendKey(const KeyPress& key)
{
    std::vector<INPUT> inputs;
    // A character alone need not be on the keyboard.
    if (key.unit >= u' ' && (key.modifiers & ~DWORD{SHIFT_PRESSED}) == 0) {
        inputs = {CharacterInput(key.unit, true), CharacterInput(key.unit, false)};
        return Send(inputs);
    }
    const auto virtualKey = static_cast<WORD>(key.virtualKey);
    for (const Modifier& modifier : modifiers)
        if ((key.modifiers & modifier.state) != 0)
            inputs.push_back(KeyInput(modifier.virtualKey, true));
    inputs.push_back(KeyInput(virtualKey, true));
    inputs.push_back(KeyInput(virtualKey, false));
    for (const Modifier& modifier : modifiers)
        if ((key.modifiers & modifier.state) != 0)
            inputs.push_back(KeyInput(modifier.virtualKey, false));
    return Send(inputs);
}

bool SetLockKey(int virtualKey, bool on)
{
    if (IsKeyOn(virtualKey) == on)
        return true;
    std::vector<INPUT> inputs = {KeyInput(static_cast<WORD>(virtualKey), true),
                                 KeyInput(static_cast<WORD>(virtualKey), false)};
    return Send(inputs);
}
