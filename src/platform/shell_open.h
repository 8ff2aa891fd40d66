// Opening documents, folders and URLs the way a double click does, through the Windows shell (which is loaded
// on the first call).
#pragma once

#include <windows.h>

#include "platform/handle.h"
#include "text/cstring.h"

struct ShellOpen {
    CString file; // a file, folder or URL
    CString arguments;
    CString verb;      // "" for the file's default one; "runas" asks for more rights
    CString directory; // "" for ours
    int showWindow = SW_SHOWNORMAL;
    bool mayAsk = false; // the system may put up boxes ("Open with ...")
};

// 0, or the Windows error that prevented it. `process`, if given, receives the program that was started; it
// stays empty when one that runs already took over.
unsigned OpenThroughShell(const ShellOpen& open, OwnedHandle* process = nullptr);
