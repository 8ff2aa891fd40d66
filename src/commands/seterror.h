// SETERROR: nothing but an error level.
#pragma once

#include "engine/tables.h"

int Seterror_Command(CString& arguments);
extern const CommandHelp seterrorHelp;
