// DELAY: waiting for a time.
#pragma once

#include "engine/tables.h"

int Delay_Command(CString& arguments);
extern const CommandHelp delayHelp;
