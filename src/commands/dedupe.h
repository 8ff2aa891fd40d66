// DEDUPE: finds files that hold the same, deletes them or makes them one.
#pragma once

#include "engine/tables.h"

int Dedupe_Command(CString& arguments);

extern const CommandHelp dedupeHelp;
