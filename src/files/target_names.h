// The name that a file gets when it is copied, moved or renamed to a target with wildcards. Pure.
#pragma once

#include <string_view>

#include "text/cstring.h"

// Builds the target's directory followed by its name pattern filled in from the source's file name:
// "abc.def.txt" to "new\*.bak" is "new\abc.def.bak". "*" and "?" stand for what they meet in the source's
// name, a period steps over the source's next one, and any other character takes the place of one. A URL is
// taken as it stands. False, with `result` unchanged, when the name would exceed 32768 units.
bool MakeWildcardName(CString& result, std::u16string_view targetPattern, std::u16string_view sourceName);
