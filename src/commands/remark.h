// REM. Remarks never get as far as a handler, but for one: "REM > file" makes an empty file.
#pragma once

#include "engine/tables.h"

int Remark_Command(CString& arguments);

extern const CommandHelp remarkHelp;
