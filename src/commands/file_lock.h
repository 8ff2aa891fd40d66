// FILELOCK: which processes have files open.
#pragma once

#include "engine/tables.h"

int Filelock_Command(CString& arguments);

extern const CommandHelp filelockHelp;
