// The format that PDIR writes its lines by. Pure.
//
// A field is a letter with modifiers right behind it and a width in front: "dc" is the date of creation,
// "12sK" the size in KB in 12 columns, "-12s" the same to the left. Text in single quotes, blanks and
// punctuation stand for themselves. "@name[arguments]" is a variable function; a "*" in its arguments is the
// file's full name.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "text/cstring.h"

struct PdirField {
    char16_t letter = 0; // 0: text that stands for itself; '@' a function
    CString text;        // the modifiers, the text, or the function with its brackets
    int width = 0;       // columns; below 0 from the left
};

// Nothing for a malformed format; `mistake` receives the place of it.
std::optional<std::vector<PdirField>> ReadPdirFormat(std::u16string_view format, std::size_t& mistake);
