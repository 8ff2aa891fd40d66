// Internal variables: declared here for expansion, defined in internals/.
#pragma once

#include <cstdint>
#include <string_view>

#include "text/cstring.h"

// The value of a name that the environment does not have: "?", "!", "_name", the result counters of the file
// commands, and the names that every command prompt computes (ERRORLEVEL, DATE, TIME, CD, RANDOM ...). False
// when there is no such name.
bool InternalVariableValue(std::u16string_view name, CString& value);

// Keeps what a file command counted: %_copy_files and its like, `name` without the "_".
void SetResultCounter(std::u16string_view name, std::int64_t count);
