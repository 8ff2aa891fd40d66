// Help: declared here for the dispatcher and the line editor, defined in commands/.
#pragma once

#include <cstddef>
#include <string_view>

struct BUILTIN;

// Writes the row's help to standard output, as "/?" behind the command's name asks for it. Answers 0.
int NTInternalHelp(const BUILTIN& row);

// Writes the help for a place in a command line, a screen at a time: that of the function, variable or
// command named there, else that of the command whose argument stands there, else the overview. Nothing of
// the line runs.
void ShowHelpForPlace(std::u16string_view line, std::size_t cursor);
