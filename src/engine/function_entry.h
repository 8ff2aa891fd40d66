// Variable functions: declared here for expansion, defined in functions/.
#pragma once

#include <string_view>

#include "text/cstring.h"
#include "text/syntax.h"

// Calls the user function or, when there is none of that name or the name begins with "*", the built-in one.
// Answers as function_result of engine/tables.h tells.
int CallVariableFunction(std::u16string_view name, std::u16string_view arguments, CString& value,
                         const Syntax& syntax);
