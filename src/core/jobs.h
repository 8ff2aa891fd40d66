// Jobs: the processes that this shell has started without waiting for them.
//
// Each lives in a job object of the system together with the processes that it starts in turn. Ending the
// shell ends none of them.
#pragma once

#include <string_view>
#include <vector>

#include "platform/process.h"
#include "text/cstring.h"

struct Job {
    int number = 0; // from 1, never used twice
    ChildProcess process;
    OwnedHandle object; // null when the system refused; then only the process itself is known
    CString command;
    std::uint64_t started = 0; // Ticks()
};

struct JobList {
    std::vector<Job> jobs;
    int lastNumber = 0;
};
JobList& Jobs();

// Remembers a process; the handle stays with the caller, too.
void NoteJob(const ChildProcess& process, std::u16string_view command);

// Process ids of what runs in the job.
std::vector<unsigned> ProcessesOf(const Job& job);
bool IsRunning(const Job& job);
// Ends all that runs in the job. False with the reason in the last error.
bool EndJob(Job& job);
