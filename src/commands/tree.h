// TREE: draws directories and what is in them.
#pragma once

#include "engine/tables.h"

int Tree_Command(CString& arguments);

extern const CommandHelp treeHelp;
