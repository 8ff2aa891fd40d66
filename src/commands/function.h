// FUNCTION and UNFUNCTION: showing, defining and removing the user's own variable functions.
#pragma once

#include "engine/tables.h"

int Function_Command(CString& arguments);
int Unfunction_Command(CString& arguments);

extern const CommandHelp functionHelp;
extern const CommandHelp unfunctionHelp;
