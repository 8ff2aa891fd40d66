// VER: the versions of the shell and of Windows.
#pragma once

#include "engine/tables.h"

int Ver_Command(CString& arguments);

extern const CommandHelp verHelp;
