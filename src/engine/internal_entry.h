// Internal variables: declared here for expansion, defined in internals/.
#pragma once

#include <cstdint>
#include <string_view>

#include "text/cstring.h"

// The value of a name that the environment does not have: "?", "!", "_name", the result counters of the file
// commands, and the names that every command prompt computes (ERRORLEVEL, DATE, TIME, CD, RANDOM ...). False
// when there is no such name.
bool InternalVariableValue(std::u16string_view name, CString& value);

// Keeps what a file command counted as it ended, in the variables %_copy_files, %_copy_dirs and %_copy_errors
// and their like: one of them, `name` without the "_", or all three of a command.
void SetResultCounter(std::u16string_view name, std::int64_t count);

struct ResultCounts {
    std::int64_t files = 0;
    std::int64_t directories = 0;
    std::int64_t errors = 0;
};
void SetResultCounters(std::u16string_view command, const ResultCounts& counts);
