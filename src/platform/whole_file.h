// Reading a file that is wanted as a whole and not large: settings, small lists.
#pragma once

#include <cstddef>
#include <string>

#include "text/cstring.h"

// The bytes of the file, at most `most` of them. Nobody may write to it meanwhile. False, with the reason in
// the thread's last error, when it cannot be opened or read.
bool ReadWholeFile(const CString& name, std::string& bytes, std::size_t most);
