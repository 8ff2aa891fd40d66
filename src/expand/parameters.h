// The parameters of a batch file or user function and the references to them: %0 to %n, %n$, %-n$, %*, %#.
#pragma once

#include <cstddef>
#include <string_view>

#include "text/cstring.h"
#include "text/syntax.h"

// What %0, %1 ... stand for. The entries outlive the reading of one reference, not more: running a command
// may start a batch file and move the frames.
struct Parameters {
    const CString* entries = nullptr; // entry 0 is %0
    std::size_t count = 0;            // entries
    std::size_t shift = 0;            // how far SHIFT has moved them
    std::u16string_view text;         // entries 1 and up as they were written
    bool wholeTail = false;           // %* gives the whole text, however far SHIFT has moved
    char16_t separator = u' ';        // a comma in user functions, whose entries are not words

    std::u16string_view Entry(std::size_t n) const;
    std::size_t Count() const; // %#
};

struct ParameterReference {
    std::size_t length = 0; // units behind the "%"; 0 when it is no reference to a parameter
    CString value;
};

// Reads the reference at the start of `text`, which begins behind the "%".
ParameterReference ReadParameter(std::u16string_view text, const Parameters& parameters,
                                 const Syntax& syntax);

// A run of digits as a number; a long one sticks at a value that no list of parameters reaches.
std::size_t ReadParameterNumber(std::u16string_view text, std::size_t& length);
