// SETP and UNSETP: the environment variables of another process.
#pragma once

#include "engine/tables.h"

int Setp_Command(CString& arguments);
int Unsetp_Command(CString& arguments);
extern const CommandHelp setpHelp;
extern const CommandHelp unsetpHelp;
