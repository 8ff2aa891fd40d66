// Which program Windows starts for a file, by the registry.
#pragma once

#include <string_view>

#include "text/cstring.h"

struct Association {
    CString commandTemplate; // as registered, variables replaced
    CString program;         // that it starts; without folder when it is registered without one
    bool needsShell = false; // cannot be started but through the Windows shell
};

// The association of the file's extension, the user's choice first. False when there is none.
bool MyFindExecutable(std::u16string_view fileName, Association& found);
