// Text on the Windows clipboard.
#pragma once

#include <string_view>

#include "text/cstring.h"

// Both answer false, with the reason in the thread's last error, when another program holds the clipboard for
// longer than a second or (reading) when no text is there (ERROR_NOT_FOUND).
bool ReadClipboardText(CString& text);
bool WriteClipboardText(std::u16string_view text);
