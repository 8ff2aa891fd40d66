// FFIND: finds files by what they are and by what they hold.
#pragma once

#include "engine/tables.h"

int Ffind_Command(CString& arguments);

extern const CommandHelp ffindHelp;
