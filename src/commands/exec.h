// EXEC: a program in the place of the shell.
#pragma once

#include "engine/tables.h"

int Exec_Command(CString& arguments);
extern const CommandHelp execHelp;
