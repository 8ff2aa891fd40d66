// ON: a command for what may happen to a batch file: breaks, errors, conditions, the mouse, the end of the
// shell.
#pragma once

#include "engine/tables.h"

int On_Command(CString& arguments);
extern const CommandHelp onHelp;
