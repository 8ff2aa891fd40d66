// Commands that are no internal ones: programs, batch files, scripts, documents, URLs.
#pragma once

#include "text/cstring.h"

// Finds and runs what the command's first word names. False when nothing of that name exists, and nothing has
// happened then. `commandLine` is the whole command with its escapes resolved, `name` its first word;
// with `setCommandLineVariable` CMDLINE tells the program how it was called.
bool RunExternal(const CString& commandLine, const CString& name, bool setCommandLineVariable, int& code);
