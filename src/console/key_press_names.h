// The names of keys that are pressed, in the one spelling of config/key_names.h. Pure.
#pragma once

#include <optional>
#include <string_view>

#include "platform/console_keys.h"
#include "text/cstring.h"

// "Ctrl-Shift-Left", "F10", "A"; empty for a key without a name, such as one that types a character through
// the input method. Keys that are held with AltGr to type a character have that character's name.
CString NameOfKey(const KeyPress& key);

// Whether the key types its character: no control character, and neither Ctrl nor Alt alone are held.
bool TypesCharacter(const KeyPress& key);

// The key of that name as the console would tell it; nothing when there is no such key.
std::optional<KeyPress> KeyPressOf(std::u16string_view name);
// The key that types the unit.
KeyPress KeyPressTyping(char16_t unit);
