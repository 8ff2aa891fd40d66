#include "files/text_pieces.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

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

// Sixteen bytes that the processor compares at once.
using Lanes = std::uint8_t __attribute__((vector_size(16)));

std::size_t CountLineFeeds(std::string_view block) noexcept
{
    constexpr std::size_t mostRounds = 255; // that a lane can count
    std::size_t count = 0;
    while (block.size() >= sizeof(Lanes)) {
        const std::size_t rounds = std::min(block.size() / sizeof(Lanes), mostRounds);
        Lanes sums = {};
        for (std::size_t round = 0; round < rounds; ++round) {
            Lanes bytes;
            std::memcpy(&bytes, block.data() + round * sizeof bytes, sizeof bytes);
            sums -= reinterpret_cast<Lanes>(bytes == '\n'); // -1 in the lanes that are equal
        }
        for (std::size_t lane = 0; lane < sizeof(Lanes); ++lane)
            count += sums[lane];
        block.remove_prefix(rounds * sizeof(Lanes));
    }
    return count + static_cast<std::size_t>(std::count(block.begin(), block.end(), '\n'));
}

bool IsUtf16LineFeed(std::string_view block, std::size_t at) noexcept
{
    return block[at] == '\n' && block[at + 1] == '\0';
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

std::size_t CountLineEnds(std::string_view block, TextEncoding encoding) noexcept
{
    if (encoding != TextEncoding::Utf16)
        return CountLineFeeds(block);
    std::size_t count = 0;
    for (std::size_t at = 0; at + 1 < block.size(); at += 2)
        count += IsUtf16LineFeed(block, at) ? 1 : 0;
    return count;
}

std::size_t BehindLineEnd(std::string_view block, TextEncoding encoding, std::size_t n) noexcept
{
    const bool wide = encoding == TextEncoding::Utf16;
    // Whole stretches are passed over by counting, which is quicker than stopping at each line end.
    constexpr std::size_t stretch = 4096;
    std::size_t at = 0;
    for (; at + stretch <= block.size(); at += stretch) {
        const std::size_t count = CountLineEnds(block.substr(at, stretch), encoding);
        if (count >= n)
            break;
        n -= count;
    }
    for (; (at = block.find('\n', at)) != block.npos; ++at) {
        if (wide && (at % 2 != 0 || at + 1 >= block.size() || block[at + 1] != '\0'))
            continue;
        if (--n == 0)
            return at + (wide ? 2 : 1);
    }
    return block.npos;
}

bool EndsWithLineEnd(std::string_view block, TextEncoding encoding) noexcept
{
    if (encoding != TextEncoding::Utf16)
        return block.ends_with('\n');
    return block.size() >= 2 && IsUtf16LineFeed(block, (block.size() & ~std::size_t{1}) - 2);
}

std::size_t BytesOfCharacters(std::string_view block, TextEncoding encoding, std::size_t count) noexcept
{
    if (encoding != TextEncoding::Utf8)
        return std::min(block.size(), encoding == TextEncoding::Utf16 ? count * 2 : count);
    std::size_t at = 0;
    while (at < block.size()) {
        const std::size_t bytes = Utf8Length(static_cast<unsigned char>(block[at]));
        const std::size_t units = bytes == 4 ? 2 : 1;
        if (units > count)
            break;
        count -= units;
        at += bytes;
    }
    return std::min(at, block.size());
}
