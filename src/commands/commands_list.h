// ? and COMMANDS: the names of the internal commands.
#pragma once

#include "engine/tables.h"

int Cmds_Command(CString& arguments);

extern const CommandHelp commandsHelp;
