// JOBS: what this shell has started and does not wait for.
#pragma once

#include "engine/tables.h"

int Jobs_Command(CString& arguments);
extern const CommandHelp jobsHelp;
