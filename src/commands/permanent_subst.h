// PSUBST: drive letters that stand for folders, for good.
#pragma once

#include "engine/tables.h"

int Psubst_Command(CString& arguments);

extern const CommandHelp psubstHelp;
