// The version resource of programs and libraries.
#pragma once

#include <string_view>

#include "text/cstring.h"

// A text of the resource by its name (CompanyName, FileDescription, FileVersion ...), in the first language
// that has it. FileVersion and ProductVersion are made from the numbers where no text stands. "" when the
// file has no such thing.
CString VersionText(std::u16string_view file, std::u16string_view name);
