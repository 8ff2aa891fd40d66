#include "files/text_pieces.h"

namespace {

unsigned char ByteAt(std::string_view block, std::size_t at) { return static_cast<unsigned char>(block[at]); }

std::size_t WholeUtf16(std::string_view block)
{
    const std::size_t even = block.size() & ~std::size_t{1};
    // The first half of a surrogate pair waits for the second.
    const bool halfPair = even >= 2 && (ByteAt(block, even - 1) & 0xFC) == 0xD8;
    return halfPair ? even - 2 : even;
}

std::size_t Utf8Length(unsigned char lead) { return lead < 0xC0 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4; }

std::size_t WholeUtf8(std::string_view block)
{
    // At most three continuation bytes stand behind the byte that leads them.
    const std::size_t size = block.size();
    for (std::size_t back = 1; back <= 3 && back <= size; ++back) {
        const unsigned char byte = ByteAt(block, size - back);
        if ((byte & 0xC0) != 0x80)
            return Utf8Length(byte) > back ? size - back : size;
    }
    return size;
}

} // namespace

std::size_t WholeLines(std::string_view block, TextEncoding encoding) noexcept
{
    if (encoding != TextEncoding::Utf16)
        return block.rfind('\n') + 1;
    for (std::size_t at = block.size() & ~std::size_t{1}; at >= 2; at -= 2)
        if (block[at - 2] == '\n' && block[at - 1] == '\0')
            return at;
    return 0;
}

std::size_t WholeCharacters(std::string_view block, TextEncoding encoding) noexcept
{
    switch (encoding) {
    case TextEncoding::Utf16: return WholeUtf16(block);
    case TextEncoding::Utf8: return WholeUtf8(block);
    case TextEncoding::CodePage: break;
    }
    return block.size();
}
