// SWITCH: one of several groups of lines, chosen by a value.
#pragma once

#include "engine/tables.h"

int Switch_Command(CString& arguments);
int Case_Command(CString& arguments);      // CASE and DEFAULT: the chosen group ends here
int Endswitch_Command(CString& arguments); // CASEALL and ENDSWITCH: nothing to do

extern const CommandHelp switchHelp;
