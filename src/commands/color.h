// COLOR: the colours of the console.
#pragma once

#include "engine/tables.h"

int Color_Command(CString& arguments);
extern const CommandHelp colorHelp;
