// What the shell remembers of typed lines: the text that quick substitution edits and the word that "%!"
// gives. Both belong to the line before the newest one, which is the one that runs.
#pragma once

#include "text/cstring.h"

// The last word of a line as it stands, quotes and all; "" when it has none.
CString LastArgumentOf(std::u16string_view line);
