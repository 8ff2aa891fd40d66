// UUID: prints new UUIDs.
#pragma once

#include "engine/tables.h"

int Uuid_Command(CString& arguments);

extern const CommandHelp uuidHelp;
