// MD, also called MKDIR.
#pragma once

#include "engine/tables.h"

int MakeDirectory_Command(CString& arguments);

extern const CommandHelp makeDirectoryHelp;
