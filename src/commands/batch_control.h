// Commands that act on the running batch file as a whole.
#pragma once

#include "engine/tables.h"

int Quit_Command(CString& arguments);
int Cancel_Command(CString& arguments);
int Shift_Command(CString& arguments);
int Defer_Command(CString& arguments);
int Loadbtm_Command(CString& arguments);

extern const CommandHelp quitHelp;
extern const CommandHelp cancelHelp;
extern const CommandHelp shiftHelp;
extern const CommandHelp deferHelp;
extern const CommandHelp loadbtmHelp;
