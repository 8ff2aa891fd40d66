// TRUE and FALSE: nothing but a result, 1 and 0, which also becomes the error level.
#pragma once

#include "engine/tables.h"

int True_Command(CString& arguments);
int False_Command(CString& arguments);

extern const CommandHelp trueHelp;
extern const CommandHelp falseHelp;
