// TYPE: the contents of text files.
#pragma once

#include "engine/tables.h"

int Type_Command(CString& arguments);

extern const CommandHelp typeHelp;
