// The colour names and attributes that settings and commands speak of.
//
// An attribute is background x 16 + foreground, each 0 to 15. A colour is written as a name ("Red", "Bright
// Blue"; three letters of each word are enough) or as its number; a pair as "<foreground> on <background>".
// Case does not count.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "text/cstring.h"

constexpr unsigned nColors = 16;

// "Black", "Blue" ... "Bright White"; null above 15.
const char16_t* ColorName(unsigned color);

// "Bright White on Blue".
CString ColorText(unsigned attribute);

// Reads one colour at `at` and moves `at` behind it; nothing, and `at` unmoved, when none stands there.
std::optional<unsigned> ReadColor(std::u16string_view text, std::size_t& at);

// Reads "<foreground> on <background>" in the same way and answers the attribute. Equal colours are none.
std::optional<unsigned> ReadColorPair(std::u16string_view text, std::size_t& at);

// The whole text as one pair.
std::optional<unsigned> ParseColorPair(std::u16string_view text);

// The whole text as one or two hexadecimal digits: "1F" is bright white on blue, "F" the same on black.
std::optional<unsigned> ParseColorDigits(std::u16string_view text);
