// MOVE: renaming files and directories to another place, on the same volume or another one.
#pragma once

#include "engine/tables.h"

int Move_Command(CString& arguments);
extern const CommandHelp moveHelp;
