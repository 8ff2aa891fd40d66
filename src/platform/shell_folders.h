// The folders that Windows keeps for users and programs: Desktop, Documents and so on.
#pragma once

#include <string_view>

#include "text/cstring.h"

// By the folder's English name ("Documents", "Downloads", "AppData" ...), blanks and letter case aside; ""
// when the name is unknown or this user has no such folder.
CString ShellFolder(std::u16string_view name);
// By the number that the Windows interface gives it (CSIDL); "" as above.
CString ShellFolder(int number);
