// Where the shell keeps files of its own for a user: logs, lists of directories.
#pragma once

#include "text/cstring.h"

// The folder of the user's local data, without a separator at its end.
CString DataFolder();
