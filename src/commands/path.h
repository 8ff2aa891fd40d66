// PATH: the list of directories that programs are searched in.
#pragma once

#include "engine/tables.h"

int Path_Command(CString& arguments);

extern const CommandHelp pathHelp;
