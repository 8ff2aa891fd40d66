// Reading and replacing a file that is wanted as a whole and not large: settings, small lists.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "text/cstring.h"

// The bytes of the file, at most `most` of them. Nobody may write to it meanwhile. False, with the reason in
// the thread's last error, when it cannot be opened or read.
bool ReadWholeFile(const CString& name, std::string& bytes, std::size_t most);
// The same for a file that is going to be replaced: one that is longer is refused (ERROR_FILE_TOO_LARGE), for
// what was not read would be lost.
bool ReadFileToReplace(const CString& name, std::string& bytes, std::size_t most);

// Puts `bytes` in the place of the file's contents, all or nothing: they are written to a temporary file
// beside it, which then takes its name. Attributes and rights of the old file stay. False, with the reason in
// the thread's last error, leaves the old file as it was.
bool ReplaceWholeFile(const CString& name, std::string_view bytes);

// Makes an empty file. False when the name is taken (ERROR_FILE_EXISTS in the last error) or cannot be used.
bool CreateNewFile(const CString& name);
