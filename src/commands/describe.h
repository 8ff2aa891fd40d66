// DESCRIBE: showing and changing the descriptions of files.
#pragma once

#include "engine/tables.h"

int Describe_Command(CString& arguments);

extern const CommandHelp describeHelp;
