#include "text/code_points.h"

std::uint32_t CodePointAt(std::u16string_view text, std::size_t& at) noexcept
{
    const std::uint32_t unit = text[at];
    const bool pair = (unit & 0xFC00) == 0xD800 && at + 1 < text.size() && (text[at + 1] & 0xFC00) == 0xDC00;
    return pair ? 0x10000 + ((unit - 0xD800) << 10) + (text[++at] - 0xDC00u) : unit;
}

void AppendCodePoint(CString& text, std::uint32_t code)
{
    if (code >= 0x10000) {
        text.Append(static_cast<char16_t>(0xD7C0 + (code >> 10)));
        code = 0xDC00 + (code & 0x3FF);
    }
    text.Append(static_cast<char16_t>(code));
}
