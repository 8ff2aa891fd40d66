// TIMER: ten stopwatches.
#pragma once

#include "engine/tables.h"

int Timer_Command(CString& arguments);
extern const CommandHelp timerHelp;
