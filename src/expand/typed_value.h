// The types that a variable's value can be declared to have: "SET /T:integer count=5". Pure.
#pragma once

#include <string_view>

enum class TypeCheck { Fits, DoesNotFit, UnknownType };

// Types, letter case aside: boolean (0, 1, true, false, yes, no, on, off), character (one unit), integer
// (as C's "%i" reads it), number (decimal, with fraction and exponent), path (no characters that a path
// cannot have), text (anything). bool, char, int, decimal and string are other names for them.
TypeCheck CheckValueType(std::u16string_view type, std::u16string_view value);
