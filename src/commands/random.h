// RANDOM: random numbers.
#pragma once

#include "engine/tables.h"

int Random_Command(CString& arguments);
extern const CommandHelp randomHelp;
