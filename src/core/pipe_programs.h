// The right side of a pipe that consists of nothing but programs: they need no copy of the shell between
// them.
#pragma once

#include <optional>
#include <vector>

#include "platform/handle.h"
#include "platform/process.h"
#include "text/cstring.h"

// Starts a process whose standard input is `input`; 0, or a Windows error number.
unsigned StartReading(const ProcessStart& start, HANDLE input, ChildProcess& child);

// A program of the right side.
struct PipeProgram {
    CString file;      // full name
    CString arguments; // as they stand; the last program's redirections are still among them
};

// The programs of "name arguments | name arguments > file"; nothing when the text needs the shell: it holds
// references, escapes or other connectors, or names an internal command, an alias, a batch file or a windowed
// program.
std::optional<std::vector<PipeProgram>> ReadPipePrograms(const CString& text);

// Starts them all, the first one reading from `input`. 0, or the result of an error that was reported; those
// that were started by then end when they find their pipes closed.
int StartPipePrograms(const std::vector<PipeProgram>& programs, OwnedHandle input,
                      std::vector<ChildProcess>& children);
