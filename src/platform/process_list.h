// Other processes: which there are, and what the system tells about each.
//
// A process that has ended, or is closed to us, has no facts; the reason stands in the thread's last error.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include <windows.h>

#include "platform/handle.h"
#include "text/cstring.h"

struct ProcessEntry {
    unsigned process = 0;
    unsigned parent = 0;
    unsigned threads = 0;
    CString program; // file name without directory
};
std::vector<ProcessEntry> AllProcesses();

OwnedHandle OpenProcessFor(unsigned process, unsigned rights);
bool IsProcess(unsigned process);

CString ProgramPathOf(unsigned process);
CString CommandLineOf(unsigned process);
// "DOMAIN\name" of the account that it runs as.
CString UserOf(unsigned process);

// Times in 100 nanoseconds: `created` and `ended` (0 while it runs) since 1601 in UTC, the others spent.
struct ProcessTimes {
    std::uint64_t created = 0;
    std::uint64_t ended = 0;
    std::uint64_t kernel = 0;
    std::uint64_t user = 0;
};
std::optional<ProcessTimes> ReadProcessTimes(unsigned process);
std::optional<IO_COUNTERS> ReadProcessCounters(unsigned process);
// NORMAL_PRIORITY_CLASS and its like; 0 when it cannot be told.
unsigned PriorityClassOf(unsigned process);
std::optional<unsigned> HandleCountOf(unsigned process);
// How many processes have loaded the library; those that are closed to us do not count.
unsigned CountProcessesWithModule(std::u16string_view fileName);
