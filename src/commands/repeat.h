// REPEAT: one command several times.
#pragma once

#include "engine/tables.h"

int Repeat_Command(CString& arguments);
extern const CommandHelp repeatHelp;
