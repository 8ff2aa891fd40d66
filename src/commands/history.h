// HISTORY and DIRHISTORY: showing, adding to, clearing and reading the histories of console/history.h.
#pragma once

#include "engine/tables.h"
#include "text/cstring.h"

extern const CommandHelp historyHelp;
extern const CommandHelp dirhistoryHelp;

int History_Command(CString& arguments);
int Dirhistory_Command(CString& arguments);
