// PRINTF: formatted text, as C programs and shells print it.
#pragma once

#include "engine/tables.h"

int Printf_Command(CString& arguments);

extern const CommandHelp printfHelp;
