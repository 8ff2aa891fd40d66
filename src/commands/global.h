// GLOBAL: runs a command in a directory and in those below it.
#pragma once

#include "engine/tables.h"

int Global_Command(CString& arguments);

extern const CommandHelp globalHelp;
