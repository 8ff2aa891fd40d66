// SET and UNSET: environment variables of this process and of the registry, and array elements.
//
// SET also calculates (/A), asks (/P) and reads definitions from files (/R). Its switches stand in front of
// the name only.
#pragma once

#include "engine/tables.h"

int Set_Command(CString& arguments);
int Unset_Command(CString& arguments);

extern const CommandHelp setHelp;
extern const CommandHelp unsetHelp;
