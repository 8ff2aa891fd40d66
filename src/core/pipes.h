// The right side of a pipe: a copy of the shell that reads what the left side writes, and the block of
// shared memory through which it sees the batch file it belongs to. Where there is nothing for a shell to do
// the programs are started without one (pipe_programs.h).
#pragma once

#include <vector>

#include "platform/handle.h"
#include "platform/process.h"
#include "platform/shared_section.h"
#include "text/cstring.h"

class PipeChild {
public:
    // Starts the child; `writeEnd` receives the end for standard output. 0 or the result of a reported error.
    int Start(const CString& text, OwnedHandle& writeEnd);
    // Waits for the right side to end; its exit code, or that of its last program.
    int Wait();

private:
    bool ShareContext();
    int StartShell(const CString& text, HANDLE input);

    std::vector<ChildProcess> processes;
    SharedSection context;
};

// In the child: takes the batch file's name and parameters and the parent's global switches from the block
// that MOVAPIPE names. Called once at start-up; does nothing in a shell that is no pipe's child.
void InheritPipeContext();
