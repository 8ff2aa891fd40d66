// The processes around this one: its parent, and those that share its console.
#pragma once

#include <vector>

#include "text/cstring.h"

// The process that started this one; 0 when it cannot be told. It may have ended since.
unsigned ParentProcess();

// The file name, without directory, of a process's program; empty when the process has ended or is closed to
// us.
CString ProgramOfProcess(unsigned process);

// Empty without a console; this process is among them otherwise.
std::vector<unsigned> ConsoleProcesses();
