// What the rows of commands that are not built yet share: a handler that says so, and a help text.
#pragma once

#include "engine/tables.h"

extern const CommandHelp unbuiltHelp;
