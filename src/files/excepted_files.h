// The files that EXCEPT keeps from the command that it runs: searches pass over them.
#pragma once

#include <unordered_set>

#include "text/compare.h"
#include "text/cstring.h"

struct ExceptedFiles {
    std::unordered_set<CString, NoCaseHash, NoCaseEqual> names; // full
};
