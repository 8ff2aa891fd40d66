// SHRALIAS: keeps the global lists when the last shell ends.
#pragma once

#include "engine/tables.h"

int Shralias_Command(CString& arguments);

extern const CommandHelp shraliasHelp;
