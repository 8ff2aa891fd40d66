// PDIR: lists files in a format of one's own.
#pragma once

#include "engine/tables.h"

int Pdir_Command(CString& arguments);

extern const CommandHelp pdirHelp;
