// Choosing a process by what a person writes.
#pragma once

#include <string_view>

// Whether the file name of a program is the wanted one, its extension aside; wildcards count.
bool ProgramMatches(std::u16string_view wanted, std::u16string_view program);
// The process of that number, or the first that runs the program of that name; 0 when there is none.
unsigned FindProcess(std::u16string_view text);
