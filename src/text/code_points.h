// Characters beyond the basic plane, which take two units of UTF-16.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "text/cstring.h"

// The code point at `at`, which goes to its last unit. A half of a pair that stands alone is its own value.
std::uint32_t CodePointAt(std::u16string_view text, std::size_t& at) noexcept;
void AppendCodePoint(CString& text, std::uint32_t code);
