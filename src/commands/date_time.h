// DATE and TIME: the computer's clock.
#pragma once

#include "engine/tables.h"

int Date_Command(CString& arguments);
int Time_Command(CString& arguments);
extern const CommandHelp dateHelp;
extern const CommandHelp timeHelp;
