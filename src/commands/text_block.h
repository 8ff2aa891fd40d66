// TEXT and COMMENT: lines of a batch file that are no commands.
#pragma once

#include "engine/tables.h"

int Text_Command(CString& arguments);
int Comment_Command(CString& arguments);

extern const CommandHelp textHelp;
extern const CommandHelp commentHelp;
