// HELP, and the help that "/?" shows (engine/help_entry.h).
#pragma once

#include "engine/tables.h"

int Help_Command(CString& arguments);

extern const CommandHelp helpHelp;
