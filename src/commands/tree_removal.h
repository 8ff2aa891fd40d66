// Removing a directory with all that is in it.
#pragma once

#include <functional>

#include "text/cstring.h"

// Links inside are removed, never followed; read-only files stay unless `readOnlyToo`. What cannot be removed
// is told to `failed` (an error number and the name) and the rest goes on. 0, or the error number of what is
// left: then the directory still stands. Throws Break between two files.
unsigned RemoveTree(const CString& directory, bool readOnlyToo,
                    const std::function<void(unsigned, const CString&)>& failed);

// Whether nothing is in the directory; not so when it cannot be read.
bool IsEmptyDirectory(const CString& directory);
