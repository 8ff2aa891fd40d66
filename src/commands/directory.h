// Changing and showing directories: CD and CDD.
#pragma once

#include <string_view>

#include "engine/tables.h"

int Cd_Command(CString& arguments);
int Cdd_Command(CString& arguments);

extern const CommandHelp cdHelp;
extern const CommandHelp cddHelp;

// Reports why a directory cannot be reached: a Windows error number, 0 for that of the thread. The system
// speaks of a file when the last part of the name is missing; here it is a directory that is looked for.
int NoDirectory(std::u16string_view name, unsigned code = 0);
