// How far the name of a "%name" reference goes, and the modifiers behind it.
#pragma once

#include <cstddef>
#include <string_view>

#include "text/syntax.h"

struct NameReference {
    std::u16string_view name;
    std::u16string_view modifier; // between ":" and the closing "%"
    std::size_t length = 0;       // units behind the opening "%"; 0 when no name stands there
    bool closed = false;          // a closing "%" belongs to it
};

constexpr std::size_t longestName = 1023;

// Answers whether a variable of exactly that name exists.
class KnownNames {
public:
    virtual ~KnownNames() = default;
    virtual bool Exists(std::u16string_view name) = 0;
};

// Reads the name at the start of `text`, which begins behind the "%". With `toPercent` every name runs to
// the next "%"; else it runs over letters, digits, "_" and "$", in .BAT and .CMD files also over what their
// authors put between two "%".
NameReference ReadName(std::u16string_view text, bool toPercent, const Syntax& syntax, KnownNames& known);

// Units that names are made of when nothing closes them.
bool IsNameUnit(char16_t unit) noexcept;
