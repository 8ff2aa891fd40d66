// The clipboards CLIP0: to CLIP9:. Number 0 is that of Windows; the others are kept by this shell alone.
#pragma once

#include <string_view>

#include "text/cstring.h"

constexpr int clipboardCount = 10;

// As platform/clipboard.h has it; an own clipboard that holds nothing answers false with ERROR_NOT_FOUND.
bool ReadClipboard(int number, CString& text);
bool WriteClipboard(int number, std::u16string_view text);
