// SYNC: bringing one directory tree up to date with another, or each with the other.
#pragma once

#include "engine/tables.h"

int Sync_Command(CString& arguments);
extern const CommandHelp syncHelp;
