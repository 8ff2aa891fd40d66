// The parts of alias expansion that only compute: reading the alias name of a command and filling an alias's
// parameters from the command's arguments. Pure; the lookups and the loop stand in aliases.cpp.
#pragma once

#include <string_view>

#include "text/cstring.h"
#include "text/syntax.h"

// The first word of a command as the alias expander sees it.
struct AliasName {
    std::size_t start = 0;    // behind leading blanks
    std::size_t end = 0;      // behind the name
    std::u16string_view name; // without leading "@" characters
    bool bypassed = false;    // "*name": nothing is expanded; start is the place of the "*"
};

AliasName ReadAliasName(std::u16string_view command, const Syntax& syntax);

// The alias's value with its parameters filled in, followed by the arguments that it did not use.
// `arguments` is the command's text behind the alias name, up to the end of the command.
CString SubstituteAliasParameters(std::u16string_view value, std::u16string_view arguments,
                                  const Syntax& syntax);
