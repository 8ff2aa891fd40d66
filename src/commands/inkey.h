// INKEY and INPUT: what a person types, or standard input holds, into a variable.
#pragma once

#include "engine/tables.h"

int Inkey_Command(CString& arguments);
int Input_Command(CString& arguments);

extern const CommandHelp inkeyHelp;
extern const CommandHelp inputHelp;
