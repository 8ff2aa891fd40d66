// TRUENAME: where names really lead to.
#pragma once

#include "engine/tables.h"

int Truename_Command(CString& arguments);

extern const CommandHelp truenameHelp;
