// Commands that run in threads of their own (THREAD).
//
// Each thread has a TLS_VARIABLES of its own, so no batch file and no error level of its maker's, and keeps
// the standard handles that held when it was made. Environment, directories, lists and settings are the
// shell's. platform/turns.h says when it runs.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "platform/handle.h"
#include "text/cstring.h"

struct CommandThread {
    int number = 0; // from 1, never used twice
    unsigned id = 0;
    OwnedHandle handle;
    OwnedHandle standard[3];
    CString command;
    std::uint64_t started = 0; // Ticks()
    bool ended = false;        // read and written by whoever has the turn
    bool mustEnd = false;
    int code = 0; // of the command, once it has ended
};

struct ThreadList {
    std::vector<std::shared_ptr<CommandThread>> threads;
    int lastNumber = 0;
};
ThreadList& Threads();

// Runs the command line in a new thread. 0, or the Windows error.
unsigned StartThread(std::u16string_view command);

// Has a thread end at the next place where it looks for breaks; programs that it waits for are ended.
void AskToEnd(CommandThread& thread);

// Waits until the thread has ended. A break of the calling thread goes through.
void WaitForThread(const CommandThread& thread);

// Before the shell ends: waits for all threads. With `hurry`, or once the user breaks off the wait, they are
// told to end and have two seconds for that.
void FinishThreads(bool hurry);
