// Batch files: declared here for every floor, defined in batch/.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "text/cstring.h"

namespace next_line {
constexpr int append = 8;       // add to the line instead of replacing it
constexpr int notPipe = 0x8000; // the handle is known not to be a pipe
constexpr int utf16 = 0x10000;
constexpr int utf8 = 0x20000;
} // namespace next_line

constexpr int longestLine = 65535; // units; the limit that batch files are read with

// Starts a batch file: `arguments[0]` is its full name, the rest its arguments. When nested it runs to its
// end and its result is answered; a chained one answers result::abandonLine.
int RunBatchFile(std::vector<CString> arguments, std::u16string_view invokedAs,
                 std::u16string_view argumentText);

// Reads one line from a file, pipe, console or the current frame's text in memory. Answers the units
// consumed, line end included; 0 at the end of the input.
int GetNextLine(std::intptr_t file, CString& line, int flags, std::u16string_view prompt, int maximum);

// Reads the next line of the current batch file and counts it; false at its end or without a batch file.
bool ReadBatchLine(CString& line);

bool OpenBatchFile();  // makes sure the current frame's file is open and positioned
void CloseBatchFile(); // nothing is lost: the next line reopens it
int ExitBatchFile();   // ends the current frame; 2 when there was none to end

// Acts on the words that open, part and close blocks (IFF, ELSE, ELSEIFF, ENDIFF, DO, ENDDO ...) before any
// expansion. `consumed` tells that the command was one of them, or stands in a branch that is skipped, and
// is not to run; the answer is a code of results.h.
int ActOnBlockWords(CString& command, bool& consumed);

// What a command is to the search for the end of a loop whose lines stand on one line, or are typed.
enum class LoopPart { None, Opens, Closes };
LoopPart QueryLoopPart(std::u16string_view command);

// Runs the commands that ON has set in the current batch file for what has happened since they were last
// asked for. result::success, or the code of a command that has left the line.
int RunOnCommands();

// Runs the start-up or exit file of the given base name, if there is one.
int RunStartupFiles(std::u16string_view name, std::u16string_view arguments);
