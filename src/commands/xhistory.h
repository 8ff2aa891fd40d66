// XHISTORY: the extended history of console/extended_history.h, shown, searched and cleared.
#pragma once

#include "engine/tables.h"
#include "text/cstring.h"

extern const CommandHelp xhistoryHelp;

int Xhistory_Command(CString& arguments);
