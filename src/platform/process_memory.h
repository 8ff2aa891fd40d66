// Looking into another process: its command line and its environment.
//
// All answer false with the reason in the thread's last error. The handle must have the rights
// PROCESS_QUERY_LIMITED_INFORMATION and PROCESS_VM_READ; a process that we may not read, or that is just
// being started or ended, refuses.
#pragma once

#include <string_view>
#include <vector>

#include <windows.h>

#include "text/cstring.h"

bool ReadProcessCommandLine(HANDLE process, CString& line);
// The variables as "name=value", in the process's own order.
bool ReadProcessEnvironment(HANDLE process, std::vector<CString>& entries);

// Sets a variable of the process, or removes it (`value` null), by having a thread of it do so. More rights
// are needed: PROCESS_CREATE_THREAD, PROCESS_VM_OPERATION and PROCESS_VM_WRITE. A process of another word
// size than ours refuses with ERROR_EXE_MACHINE_TYPE_MISMATCH.
bool SetProcessVariable(HANDLE process, std::u16string_view name, const char16_t* value);
