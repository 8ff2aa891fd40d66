// GOSUB: running the lines behind a label as a subroutine, in the current batch file or in another.
#pragma once

#include <string_view>
#include <vector>

#include "text/cstring.h"

// `arguments` are the label and what the subroutine gets. 0 when it came back or its file ended; the value of
// its RETURN is then TLS_VARIABLES::subroutineResult. Otherwise the result of a failed search, or
// result::abandonLine when the batch file is to end.
int CallSubroutine(std::u16string_view arguments);

// The same in the batch file of that full name, in a frame of its own.
int CallSubroutineInFile(const CString& fileName, std::u16string_view invokedAs,
                         std::u16string_view arguments);
