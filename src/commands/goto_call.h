// Leaving the straight line of a batch file: jumps, subroutines and calls.
#pragma once

#include "engine/tables.h"

int Goto_Command(CString& arguments);
int Gosub_Command(CString& arguments);
int Ret_Command(CString& arguments);
int Call_Command(CString& arguments);
int Caller_Command(CString& arguments);

extern const CommandHelp gotoHelp;
extern const CommandHelp gosubHelp;
extern const CommandHelp returnHelp;
extern const CommandHelp callHelp;
extern const CommandHelp callerHelp;
