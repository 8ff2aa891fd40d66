// CHCP: the code page of the console, and of redirected input and output.
#pragma once

#include "engine/tables.h"

int Chcp_Command(CString& arguments);
extern const CommandHelp chcpHelp;
