// VERIFY: whether what commands copy is read back and compared.
#pragma once

#include "engine/tables.h"

int Verify_Command(CString& arguments);

extern const CommandHelp verifyHelp;
