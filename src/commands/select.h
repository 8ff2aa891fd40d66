// SELECT: a command for the files that a person marks in a list.
#pragma once

#include "engine/tables.h"

int Select_Command(CString& arguments);

extern const CommandHelp selectHelp;
