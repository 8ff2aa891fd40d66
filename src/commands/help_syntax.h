// How lines are written: several commands, redirection, characters with a meaning. HELP SYNTAX shows it, for
// what no command's help tells.
#pragma once

#include "text/cstring.h"

// Whether HELP with this word means the page: "syntax", "redirection", "pipes" and their like.
bool IsSyntaxWord(std::u16string_view word);
// Laid out for so many columns, 0 for lines as they are.
CString SyntaxPage(int width);
