// Taking a FOR command apart: its switches, variable, set and command. Pure; nothing is expanded here.
#pragma once

#include <string_view>

#include "text/cstring.h"
#include "text/syntax.h"

struct ForHeader {
    bool directories = false; // /D
    bool recursive = false;   // /R
    bool counting = false;    // /L
    bool parsing = false;     // /F
    CString root;             // of /R; "" when none was given
    CString options;          // of /F, quotes and all
    CString variable;         // without "%"
    CString set;              // between the parentheses
    CString command;          // behind DO
    CString refused;          // a switch that FOR does not know
};

// False when the text is no FOR; `refused` is then set if a switch is to blame.
bool ReadForHeader(std::u16string_view text, const Syntax& syntax, ForHeader& header);

// The entries of a set, parted by blanks, commas, semicolons, equal signs and line feeds outside quotes.
class CString;
struct SetReader {
    std::u16string_view set;
    std::size_t at = 0;

    // False at the end.
    bool Next(std::u16string_view& entry);
};
