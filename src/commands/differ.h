// DIFFER: what two directories or two files have apart.
#pragma once

#include "engine/tables.h"

int Differ_Command(CString& arguments);

extern const CommandHelp differHelp;
