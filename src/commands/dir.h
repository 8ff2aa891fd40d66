// DIR: lists directories and the files in them.
#pragma once

#include "engine/tables.h"

int Dir_Command(CString& arguments);

extern const CommandHelp dirHelp;
