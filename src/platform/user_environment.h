// The environment that the user gets at log-on, before anything has changed it.
#pragma once

#include "text/cstring.h"

// "name=value" entries with a NUL behind each one; "" when the system does not tell.
CString LogOnEnvironment();
