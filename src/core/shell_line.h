// The command line of a new copy of the shell.
#pragma once

#include <string_view>

#include "text/cstring.h"

// "program" switches /C text: the text reaches the new shell exactly as it stands. `mode` is "/C" or "/K";
// without text both are left out. `switches` begin with a blank or are empty.
CString ShellLine(std::u16string_view program, std::u16string_view switches, std::u16string_view mode,
                  std::u16string_view text);
