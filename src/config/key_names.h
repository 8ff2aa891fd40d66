// Names of keys: those that stand for a character, as the settings CommandSep, EscapeChar and the like take
// them, and those that key functions and keystroke aliases are bound to.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "text/cstring.h"

// The code (1 to 255) of a single character, or of a longer word: "Esc", "Tab", "Enter", "Space",
// "Backspace", "Ctrl-A" to "Ctrl-Z", "Alt-nnn" (the code typed on the number pad), a decimal code of two or
// three digits, or "0x" and a hexadecimal one. Case does not count. Nothing for any other word.
std::optional<std::uint8_t> CharacterCode(std::u16string_view word);

// The one spelling of a key's name: the modifiers "Ctrl-", "Alt-", "Shift-" and "Win-" in this order, then a
// letter in upper case, another character, "F1" to "F24", "Left", "PgUp" and the like, or behind "Alt-" a
// code of two or three digits. "Escape", "PageDown", "Insert" and a few more are other names. Empty for any
// other word.
CString KeyName(std::u16string_view word);

// Whether the key, by its one spelling, types a character and nothing more.
bool IsTypingKey(std::u16string_view name);
