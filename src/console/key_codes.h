// The codes by which scripts know keys: a key that types a character is that character, any other is "@" and
// a number, "@59" for F1. Enter is "@28". Pure.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "text/cstring.h"

// A key as the console tells it, Windows' numbers and bits.
struct KeyFacts {
    char16_t unit = 0;
    unsigned virtualKey = 0;
    unsigned modifiers = 0; // the console's control key state
    unsigned scanCode = 0;
};
CString KeyCode(const KeyFacts& key);

// The buttons of the mouse: left "@240", right "@241", middle "@242".
enum class MouseButton;
CString ButtonCode(MouseButton button);

// The codes of a list of keys: each character stands for itself, and a name or code in brackets for a key,
// "yn[Enter][Ctrl-F1][@59]". Nothing when a name is none.
std::optional<std::vector<CString>> ReadKeyList(std::u16string_view list);
