// The services of this machine.
#pragma once

#include <string_view>

#include "text/cstring.h"

struct ServiceState {
    CString displayName;
    CString command;
    CString account;
    unsigned state = 0;   // 1 stopped, 4 running; SERVICE_...
    unsigned start = 0;   // 2 automatic, 3 manual, 4 disabled
    unsigned process = 0; // 0 while it does not run
};

// By its name or the name that it is shown by. 0 or a Windows error number.
unsigned ReadServiceState(std::u16string_view name, ServiceState& state);
