// Which Windows this is, as the system itself says (compatibility settings left aside).
#pragma once

#include "text/cstring.h"

struct SystemVersion {
    unsigned major = 0;
    unsigned minor = 0;
    unsigned build = 0;
    unsigned revision = 0; // the monthly update level; 0 when unknown
    bool server = false;
    CString release; // "22H2", empty when unknown
};

SystemVersion ReadSystemVersion();
