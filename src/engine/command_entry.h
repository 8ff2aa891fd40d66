// Running command lines: declared here for every floor, defined in core/.
#pragma once

#include <string_view>

#include "engine/results.h"
#include "text/cstring.h"

// Flags of a line.
namespace line_flags {
constexpr int typed = 1;    // typed at the prompt
constexpr int echo = 2;     // echo each command when the echo state is on
constexpr int debugger = 4; // the batch debugger may step it
constexpr int batch = echo | debugger;
} // namespace line_flags

// Runs one line, however many commands it holds. Answers 0, or the last command's result.
int Command_S(CString line, int flags);

// Clears the marks that parsing one command leaves behind (among them the one of the "*" prefix).
void ResetParsingFlags();

// Runs one command whose aliases and variables are expanded and whose redirection is in force.
int Runp(CString& command, bool echoed);

struct BUILTIN;

// Runs an internal command with its argument text as if it had been typed, help and error level included.
int RunInternalCommand(const BUILTIN& row, CString& arguments);

// Calls a handler with a copy of the text, and nothing else: no help, no error level.
int ExecuteInternalCommand(int (*handler)(CString&), const char16_t* arguments);

// Reads lines and joins them on while `text` ends inside a parenthesised block; result::abandonBatch when
// the input ends first (reported). `forSet` tells that the "(" behind IN of a FOR stands open.
int CompleteBlock(CString& text, bool forSet = false);
