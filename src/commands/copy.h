// COPY: copying files, one by one or joined, and from and to devices.
#pragma once

#include "engine/tables.h"

int Copy_Command(CString& arguments);
extern const CommandHelp copyHelp;
