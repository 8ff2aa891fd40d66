// Passwords in INI files: kept from a casual glance, not from anybody who has this program.
//
// An enciphered value begins with the character of code 16; anything else is plain text. Line ends, tabs and
// other control characters never come out of the cipher, so that a value stays on its line.
#pragma once

#include <string_view>

#include "text/cstring.h"

CString Encipher(std::u16string_view plain);
// The plain text of a value as it stands in an INI file.
CString Decipher(std::u16string_view value);
