// Names of keys that stand for a character, as the settings CommandSep, EscapeChar and the like take them.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

// The code (1 to 255) of a single character, or of a longer word: "Esc", "Tab", "Enter", "Space",
// "Backspace", "Ctrl-A" to "Ctrl-Z", "Alt-nnn" (the code typed on the number pad), a decimal code of two or
// three digits, or "0x" and a hexadecimal one. Case does not count. Nothing for any other word.
std::optional<std::uint8_t> CharacterCode(std::u16string_view word);
