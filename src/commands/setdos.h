// SETDOS: a short way to the settings of the command line, to the internal commands that are switched off and
// to the parts of expansion that are.
#pragma once

#include "engine/tables.h"

int Setdos_Command(CString& arguments);

extern const CommandHelp setdosHelp;
