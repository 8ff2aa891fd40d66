// START: programs, documents and commands in windows of their own, or beside the shell.
#pragma once

#include "engine/tables.h"

int Start_Command(CString& arguments);

extern const CommandHelp startHelp;
