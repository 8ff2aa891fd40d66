// The environment variables that the registry keeps for new programs: reading, writing and removing them.
#pragma once

#include <string_view>
#include <vector>

#include "text/cstring.h"

enum class RegistryEnvironment {
    System,   // all users
    User,     // this user
    Volatile, // this user, until he logs off
    Default   // users who are not logged on
};

// All variables as "name=value", values as they stand there. Empty when the place cannot be read.
std::vector<CString> RegistryVariables(RegistryEnvironment place);

// Both answer 0 or a Windows error number. A value that names other variables ("%") is stored so that they
// are replaced when it is read; removing what does not exist succeeds.
unsigned WriteRegistryVariable(RegistryEnvironment place, std::u16string_view name,
                               std::u16string_view value);
unsigned RemoveRegistryVariable(RegistryEnvironment place, std::u16string_view name);
