// LOG: switching the logs of engine/logs.h, and writing lines into them.
#pragma once

#include "engine/tables.h"
#include "text/cstring.h"

extern const CommandHelp logHelp;

int Log_Command(CString& arguments);
