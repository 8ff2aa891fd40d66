// ACTIVATE and WINDOW: the windows of other programs, and that of the console.
#pragma once

#include "engine/tables.h"

int Activate_Command(CString& arguments);
int Window_Command(CString& arguments);

extern const CommandHelp activateHelp;
extern const CommandHelp windowHelp;
