// Converting between UTF-16 and the byte encodings that need no code-page table.
//
// Malformed input never stops a conversion: each bad unit or byte becomes U+FFFD. Code pages are the
// platform floor's matter (platform/codepage.h).
#pragma once

#include <string>
#include <string_view>

#include "text/cstring.h"

// Well-formed UTF-8, judged strictly (no overlong forms, surrogates or values above U+10FFFF).
bool IsValidUtf8(std::string_view bytes) noexcept;
CString FromUtf8(std::string_view bytes);
std::string ToUtf8(std::u16string_view text);
// Each byte below 0x80 as itself, any other as U+FFFD: for names and constants known to be ASCII.
CString FromAscii(std::string_view bytes);
