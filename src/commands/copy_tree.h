// COPYDIR and MOVEDIR: a directory with all that is in it to another place.
#pragma once

#include "engine/tables.h"

int CopyDirectory_Command(CString& arguments);
int MoveDirectory_Command(CString& arguments);
extern const CommandHelp copyDirectoryHelp;
extern const CommandHelp moveDirectoryHelp;
