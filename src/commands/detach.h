// DETACH: a program or command that runs without console and is not waited for.
#pragma once

#include "engine/tables.h"

// Receives the whole rest of the line, separators, pipes and redirections included, before any expansion.
int Detach_Command(CString& arguments);

extern const CommandHelp detachHelp;
