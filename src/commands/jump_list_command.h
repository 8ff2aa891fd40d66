// JUMPLIST: tasks and recent files of the shell's entry in the taskbar.
#pragma once

#include "engine/tables.h"

int Jumplist_Command(CString& arguments);

extern const CommandHelp jumplistHelp;
