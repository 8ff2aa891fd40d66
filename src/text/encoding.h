// Converting between UTF-16 and the byte encodings that need no code-page table.
//
// Malformed input never stops a conversion: each bad unit or byte becomes U+FFFD. Code pages are the
// platform floor's matter (platform/codepage.h).
#pragma once

#include <string>
#include <string_view>

#include "text/cstring.h"

bool IsAscii(std::u16string_view text) noexcept;
// Well-formed UTF-8, judged strictly (no overlong forms, surrogates or values above U+10FFFF).
bool IsValidUtf8(std::string_view bytes) noexcept;
CString FromUtf8(std::string_view bytes);
std::string ToUtf8(std::u16string_view text);
// Each byte below 0x80 as itself, any other as U+FFFD: for names and constants known to be ASCII.
CString FromAscii(std::string_view bytes);

enum class TextEncoding { CodePage, Utf8, Utf16 };

// How a text file is encoded, and the bytes of the mark it begins with.
struct RecognisedEncoding {
    TextEncoding encoding = TextEncoding::CodePage;
    std::size_t markLength = 0;
};

// Judged by the first block of the file: its mark, else the look of unmarked UTF-16, else UTF-8 that is well
// formed and not plain ASCII (a sequence cut by the end of the block does not count against it).
RecognisedEncoding RecogniseEncoding(std::string_view block) noexcept;
