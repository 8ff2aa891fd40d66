// REN, also called RENAME.
#pragma once

#include "engine/tables.h"

int Rename_Command(CString& arguments);

extern const CommandHelp renameHelp;
