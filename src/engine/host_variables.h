// What only the host knows, asked through SetHostVariables of engine/movacore.h.
#pragma once

#include <string_view>

#include "text/cstring.h"

// False when the host has no value of that name; `value` is then empty.
bool AskHost(const char16_t* name, CString& value);
