// WHICH: what a name would run as a command.
#pragma once

#include "engine/tables.h"

int Which_Command(CString& arguments);

extern const CommandHelp whichHelp;
