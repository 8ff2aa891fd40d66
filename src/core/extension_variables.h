// Executable-extension variables: ".ext;.ext2=command" in the environment makes files with these extensions
// commands. Pure.
#pragma once

#include <string_view>
#include <vector>

#include "text/cstring.h"

// Adds the extensions that an environment entry ("name=value") names; ordinary variables name none.
void AddVariableExtensions(std::u16string_view entry, std::vector<CString>& extensions);

// The command for an extension (with its period), by the first entry that names it; "" for none. Extensions
// may hold wildcards.
CString FindExtensionCommand(const std::vector<CString>& entries, std::u16string_view extension);
