// What a file seems to hold, by its first bytes.
#pragma once

#include <string_view>

// "empty", "ascii", "ansi" (text of some code page), "utf8", "utf16", "utf16be" or "binary".
std::u16string_view ContentKind(std::string_view firstBlock) noexcept;
