// Reading directory names as people write them for CD and its kin. Pure.
#pragma once

#include <string_view>

#include "text/cstring.h"

// The name without quotes and without blanks around it, and with each component of three or more periods
// replaced by the ".." steps it stands for ("...\x" becomes "..\..\x"). "/" counts as a separator.
CString CleanDirectoryName(std::u16string_view name);

// The letter of the drive that the name begins with, in upper case; 0 when it names none.
char16_t DriveLetter(std::u16string_view name);

// Whether the last component holds "*" or "?"; a device prefix ("\\?\") does not count.
bool EndsInWildcard(std::u16string_view name);
