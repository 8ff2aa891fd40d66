// TS: the named streams of files.
#pragma once

#include "engine/tables.h"

int Ts_Command(CString& arguments);

extern const CommandHelp tsHelp;
