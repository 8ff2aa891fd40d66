// Texts as web addresses and web pages write them: "%20" and "&amp;".
#pragma once

#include <string_view>

#include "text/cstring.h"

// Everything but ASCII letters, digits and "-._~" becomes its UTF-8 bytes, "%" and two digits each.
CString EncodeUrl(std::u16string_view text);
// Bytes that are no UTF-8 become U+FFFD; a "%" without two digits behind it stays.
CString DecodeUrl(std::u16string_view text);

// The characters & < > " ' become entities.
CString EncodeHtml(std::u16string_view text);
// Entities by number and by name (those of HTML 4, and "&apos;"); anything else stays.
CString DecodeHtml(std::u16string_view text);
