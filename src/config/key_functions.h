// The functions that keys are bound to, and the keys that each has now.
//
// A line "Name=keys" of an INI file replaces a function's keys. Keys are parted by blanks and written like
// "Ctrl-Shift-Left". When a key is pressed the console asks FindKeyFunction for the category in use and
// performs what it names. To add a function, add its row; the console's own table does the work.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "text/cstring.h"

namespace key_category {
constexpr unsigned editing = 1;
constexpr unsigned completion = 2; // tab completion, in the line editor too
constexpr unsigned popup = 4;
constexpr unsigned consolePopup = 8;
constexpr unsigned extendedHistory = 16;
constexpr unsigned list = 32;
constexpr unsigned lineEditor = editing | completion;
} // namespace key_category

struct KeyFunctionRow {
    const char16_t* name;
    const char16_t* description;
    unsigned category; // one or more bits of key_category
    const char16_t* keys;
};

constexpr std::size_t nKeyFunctions = 120;
extern const std::array<KeyFunctionRow, nKeyFunctions> aKeyFunctions;

// "Editing", "Popup Windows" ...; null for anything but a single bit of key_category.
const char16_t* KeyCategoryName(unsigned category);

// The keys in force. Engine-wide, set from INI files and commands.
class KeyBindings {
public:
    // The row of that name, without regard to case; -1 when there is none.
    static int Find(std::u16string_view name);

    std::u16string_view Keys(int function) const;
    void SetKeys(int function, std::u16string_view keys); // empty: no key performs it any more
    bool IsDefault(int function) const { return !changed[static_cast<std::size_t>(function)]; }
    void Reset();
    void Reset(int function); // to the keys of the table

    // The first function of the categories that has the key; -1 when none has.
    int FindKeyFunction(unsigned categories, std::u16string_view key) const;

private:
    std::array<bool, nKeyFunctions> changed{};
    std::array<CString, nKeyFunctions> keys;
};

extern KeyBindings aKeyBindings;
