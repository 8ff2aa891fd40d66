// The hardware profile that the machine was started with.
#pragma once

#include "text/cstring.h"

CString HardwareProfileName();
