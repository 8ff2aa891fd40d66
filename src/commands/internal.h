// INTERNAL: which internal commands may be used.
#pragma once

#include "engine/tables.h"

int Internal_Command(CString& arguments);

extern const CommandHelp internalHelp;
