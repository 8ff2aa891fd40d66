// FOR: a command for every entry of a set.
#pragma once

#include "engine/tables.h"

int For_Command(CString& arguments);

extern const CommandHelp forHelp;
