// DEL, also called ERASE.
#pragma once

#include "engine/tables.h"

int Delete_Command(CString& arguments);

extern const CommandHelp deleteHelp;
