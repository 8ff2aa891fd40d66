// Changes to a whole line before it is cut into commands. Pure.
#pragma once

#include "text/cstring.h"
#include "text/syntax.h"

// "!old!new!" (longer than three units, both texts at most 255) becomes `previous` with every `old` replaced
// by `new`; any other line stays. True when the line was one.
bool QuickSubstitution(CString& line, std::u16string_view previous);

// Turns the forward slashes of a command's path into backslashes: those of the first word when it begins
// with one, and of later words that begin with one and hold another.
void UnixAFStoWindows(CString& line, const Syntax& syntax);
