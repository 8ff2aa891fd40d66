// ALIAS and UNALIAS: showing, defining and removing aliases in the local and the global list.
#pragma once

#include "engine/tables.h"

int Alias_Command(CString& arguments);
int Unalias_Command(CString& arguments);

extern const CommandHelp aliasHelp;
extern const CommandHelp unaliasHelp;
