// RECYCLE: what is in the recycle bin, and what becomes of it.
#pragma once

#include "engine/tables.h"

int Recycle_Command(CString& arguments);

extern const CommandHelp recycleHelp;
