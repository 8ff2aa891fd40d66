// BREAK: whether Ctrl+C is looked at.
#pragma once

#include "engine/tables.h"

int Break_Command(CString& arguments);
extern const CommandHelp breakHelp;
