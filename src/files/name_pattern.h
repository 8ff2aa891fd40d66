// A file name pattern made ready for many names: wildcards and sets with the rules for extensions, a list of
// them, or a regular expression, as files/wildcards.h tells. Pure.
#pragma once

#include <optional>
#include <string_view>

#include "files/regex.h"
#include "text/cstring.h"

class NamePattern {
public:
    NamePattern(std::u16string_view patternList, RegexSyntax syntax);

    // A malformed regular expression matches nothing.
    bool IsValid() const noexcept { return !regex || regex->IsValid(); }
    bool Matches(std::u16string_view name) const;

private:
    CString pattern;
    std::optional<Regex> regex;
    bool all = false; // takes every name
};
