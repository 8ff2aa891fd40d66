// EXCEPT: runs a command that does not see some files.
#pragma once

#include "engine/tables.h"

int Except_Command(CString& arguments);

extern const CommandHelp exceptHelp;
