// Building the command line that a new process receives. Pure.
//
// Windows passes one text, which the started program cuts into arguments by itself. Nearly all programs cut
// by the rules of the C run-time library; AddProcessArgument writes for those rules.
#pragma once

#include <string_view>

#include "text/cstring.h"

// The program's name in double quotes, then the arguments exactly as they stand; a blank is put between them
// when the text brings none.
CString ProcessLine(std::u16string_view program, std::u16string_view argumentText);

// Adds one argument so that the program gets these very characters, whatever they are.
void AddProcessArgument(CString& line, std::u16string_view argument);
