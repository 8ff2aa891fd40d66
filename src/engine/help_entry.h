// Help: declared here for the dispatcher and the line editor, defined in commands/.
#pragma once

#include <cstddef>
#include <string_view>

#include "text/cstring.h"

struct BUILTIN;

// Writes the row's help to standard output, as "/?" behind the command's name asks for it. Answers 0.
int NTInternalHelp(const BUILTIN& row);

// The help for a place in a command line: that of the function, variable or command named there, else that of
// the command whose argument stands there, else the overview. Lines are wrapped to `width` columns (0 leaves
// them whole) and end with "\r\n".
CString HelpForPlace(std::u16string_view line, std::size_t cursor, int width);
