#include "batch/line_splitting.h"

namespace {

constexpr unsigned ctrlZ = 26;

struct NarrowUnits {
    static constexpr std::size_t size = 1;
    static unsigned At(const char* bytes, std::size_t index)
    {
        return static_cast<unsigned char>(bytes[index]);
    }
};

struct WideUnits {
    static constexpr std::size_t size = 2;
    static unsigned At(const char* bytes, std::size_t index)
    {
        return NarrowUnits::At(bytes, 2 * index) | NarrowUnits::At(bytes, 2 * index + 1) << 8;
    }
};

// Units of the line end at `at`, where a CR or LF stands; 0 when the block ends before that is known.
template <typename Units>
std::size_t LineEndLength(const char* bytes, std::size_t at, std::size_t count, LineEnds ends, bool lastBlock)
{
    if (Units::At(bytes, at) == '\n')
        return 1;
    const std::size_t left = count - at;
    if (left < 2)
        return lastBlock ? 1 : 0;
    const unsigned second = Units::At(bytes, at + 1);
    if (second == '\n')
        return 2;
    if (second != '\r' || ends == LineEnds::Memory)
        return 1;
    if (left < 3)
        return lastBlock ? 1 : 0;
    return Units::At(bytes, at + 2) == '\n' ? 3 : 1;
}

template <typename Units> SplitLine Split(std::string_view block, LineEnds ends, bool lastBlock)
{
    const char* bytes = block.data();
    const std::size_t count = block.size() / Units::size;
    std::size_t at = 0;
    unsigned unit = 0;
    for (; at < count; ++at) {
        unit = Units::At(bytes, at);
        if (unit <= ctrlZ && (unit == '\r' || unit == '\n' || unit == ctrlZ))
            break;
    }
    if (at == count)
        return {at * Units::size, at * Units::size, lastBlock};
    if (unit == ctrlZ)
        return {at * Units::size, at * Units::size, true};
    const std::size_t end = LineEndLength<Units>(bytes, at, count, ends, lastBlock);
    return {at * Units::size, (at + end) * Units::size, end != 0};
}

} // namespace

SplitLine SplitFirstLine(std::string_view block, std::size_t unitSize, LineEnds ends, bool lastBlock) noexcept
{
    return unitSize == 2 ? Split<WideUnits>(block, ends, lastBlock)
                         : Split<NarrowUnits>(block, ends, lastBlock);
}
