// The world that expansion sees in the engine: the environment, the current batch file, loops, arrays,
// internal variables, functions, files and settings of this thread.
#pragma once

#include "expand/expansion.h"

// One for all threads: it keeps nothing itself.
ExpansionWorld& EngineExpansionWorld();
