// The command templates that the registry keeps for file types, such as "C:\edit.exe" "%1" %*. Pure.
#pragma once

#include <string_view>

#include "text/cstring.h"

// The command line that a template stands for: %1, %L, %V and %D become the file's name, %* the arguments,
// %2 to %9 single ones, %W the current directory; %I and whatever else only the Windows shell can fill become
// nothing. A template that names no file gets it at its end.
CString FillAssociation(std::u16string_view commandTemplate, std::u16string_view file,
                        std::u16string_view arguments, std::u16string_view currentDirectory);

// The program that a template starts, without quotes. An unquoted name may hold blanks when it ends in
// ".exe".
CString ProgramOfTemplate(std::u16string_view commandTemplate);

// Templates that start no program of their own which could be waited for: dynamic data exchange ("/dde"),
// item lists (%I) and code in a library (rundll32.exe). They are left to the Windows shell.
bool NeedsWindowsShell(std::u16string_view commandTemplate);
