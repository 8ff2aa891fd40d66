// FSEARCH and EVERYTHING: files found through an index of the machine's files, where there is one.
#pragma once

#include "engine/tables.h"

int Fsearch_Command(CString& arguments);
int Everything_Command(CString& arguments);

extern const CommandHelp fsearchHelp;
extern const CommandHelp everythingHelp;
