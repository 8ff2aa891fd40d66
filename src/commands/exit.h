// EXIT: leaving the shell, or with /B the batch file.
#pragma once

#include "engine/tables.h"

int Exit_Command(CString& arguments);

extern const CommandHelp exitHelp;
