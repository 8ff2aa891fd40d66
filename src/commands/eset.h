// ESET: editing the value of a variable, alias or function, or a search path piece by piece, at the console.
#pragma once

#include "engine/tables.h"

int Eset_Command(CString& arguments);

extern const CommandHelp esetHelp;
