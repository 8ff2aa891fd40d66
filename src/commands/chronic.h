// CHRONIC: a command that is heard of only when it fails.
#pragma once

#include "engine/tables.h"

int Chronic_Command(CString& arguments);
extern const CommandHelp chronicHelp;
