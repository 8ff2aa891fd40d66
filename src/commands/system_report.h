// Commands that tell about the running system: LOOKUPERRORS, MEMORY, TMP and UPTIME.
#pragma once

#include "engine/tables.h"

int Lookuperrors_Command(CString& arguments);
int Memory_Command(CString& arguments);
int Tmp_Command(CString& arguments);
int Uptime_Command(CString& arguments);
extern const CommandHelp lookuperrorsHelp;
extern const CommandHelp memoryHelp;
extern const CommandHelp tmpHelp;
extern const CommandHelp uptimeHelp;
