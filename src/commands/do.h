// DO: a block of lines, or commands in parentheses, again and again.
//
// The words ENDDO, ITERATE and LEAVE are no commands: the dispatcher acts on them (batch/blocks.cpp).
#pragma once

#include "engine/tables.h"

int Do_Command(CString& arguments);

extern const CommandHelp doHelp;
