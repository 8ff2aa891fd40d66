#include "text/content_kind.h"

#include <algorithm>

#include "text/encoding.h"

namespace {

// Codes that no text has: control characters but for those that move or ring, and the end-of-file mark.
bool IsBinary(char byte)
{
    constexpr std::string_view inTexts = "\a\b\t\n\v\f\r\x1A\x1B";
    return static_cast<unsigned char>(byte) < 0x20 && inTexts.find(byte) == inTexts.npos;
}

} // namespace

std::u16string_view ContentKind(std::string_view firstBlock) noexcept
{
    if (firstBlock.empty())
        return u"empty";
    if (firstBlock.starts_with("\xFE\xFF"))
        return u"utf16be";
    const TextEncoding encoding = RecogniseEncoding(firstBlock).encoding;
    if (encoding == TextEncoding::Utf16)
        return u"utf16";
    if (std::any_of(firstBlock.begin(), firstBlock.end(), IsBinary))
        return u"binary";
    if (encoding == TextEncoding::Utf8)
        return u"utf8";
    const bool ascii = std::all_of(firstBlock.begin(), firstBlock.end(),
                                   [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
    return ascii ? u"ascii" : u"ansi";
}
