// OPTION: shows the settings of this shell and where they come from, changes them, puts them back and writes
// them into the INI file.
#pragma once

#include "engine/tables.h"

int Option_Command(CString& arguments);

extern const CommandHelp optionHelp;
