// RD, also called RMDIR.
#pragma once

#include "engine/tables.h"

int RemoveDirectory_Command(CString& arguments);

extern const CommandHelp removeDirectoryHelp;
