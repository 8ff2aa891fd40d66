// SETLOCAL, ENDLOCAL and LOCAL: changes of the environment that are undone.
#pragma once

#include "engine/tables.h"

int Setlocal_Command(CString& arguments);
int Endlocal_Command(CString& arguments);
int Local_Command(CString& arguments);

extern const CommandHelp setlocalHelp;
extern const CommandHelp endlocalHelp;
extern const CommandHelp localHelp;
