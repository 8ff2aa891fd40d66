// The text without which a regular expression matches nothing: files that do not hold it need no closer look.
// Pure.
#pragma once

#include <string_view>

#include "files/regex.h"
#include "text/cstring.h"

// The longest run of ASCII characters that every match holds, as far as it is told by a plain look; "" when
// it is not. Without letter case only such letters are answered whose other forms are ASCII as well.
CString RequiredText(std::u16string_view expression, RegexSyntax syntax, RegexCase letterCase);
