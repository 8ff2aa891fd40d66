// TOUCH: the times of files, and new empty files.
#pragma once

#include "engine/tables.h"

int Touch_Command(CString& arguments);

extern const CommandHelp touchHelp;
