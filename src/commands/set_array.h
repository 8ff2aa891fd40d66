// SETARRAY and UNSETARRAY: making, showing and removing array variables. Elements are set with SET.
#pragma once

#include "engine/tables.h"

int Setarray_Command(CString& arguments);
int Unsetarray_Command(CString& arguments);

extern const CommandHelp setarrayHelp;
extern const CommandHelp unsetarrayHelp;
