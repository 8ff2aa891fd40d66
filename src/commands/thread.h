// THREAD: a command in a thread of its own.
#pragma once

#include "engine/tables.h"

int Thread_Command(CString& arguments);
extern const CommandHelp threadHelp;
