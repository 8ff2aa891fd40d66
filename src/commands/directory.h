// Changing and showing directories: CD and CDD.
#pragma once

#include "engine/tables.h"

int Cd_Command(CString& arguments);
int Cdd_Command(CString& arguments);

extern const CommandHelp cdHelp;
extern const CommandHelp cddHelp;
