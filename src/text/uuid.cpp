#include "text/uuid.h"

#include "text/compare.h"

namespace {

constexpr std::size_t groupEnds[] = {4, 6, 8, 10}; // bytes before each hyphen

bool EndsGroup(std::size_t bytes)
{
    for (const std::size_t end : groupEnds) {
        if (bytes == end)
            return true;
    }
    return false;
}

std::uint8_t ByteOf(std::uint64_t number, int n) { return static_cast<std::uint8_t>(number >> (8 * n)); }

} // namespace

Uuid StampUuid(Uuid bytes, int version)
{
    bytes[6] = static_cast<std::uint8_t>((bytes[6] & 0x0F) | version << 4);
    bytes[8] = static_cast<std::uint8_t>((bytes[8] & 0x3F) | 0x80);
    return bytes;
}

Uuid TimeUuid1(std::uint64_t fileTime, const Uuid& random)
{
    const std::uint64_t time = fileTime + ticksFrom1582To1601;
    Uuid bytes = random;
    for (std::size_t i = 0; i < 4; ++i)
        bytes[i] = ByteOf(time, 3 - static_cast<int>(i));
    bytes[4] = ByteOf(time, 5);
    bytes[5] = ByteOf(time, 4);
    bytes[6] = ByteOf(time, 7);
    bytes[7] = ByteOf(time, 6);
    bytes[10] |= 1; // a node that is no network card
    return StampUuid(bytes, 1);
}

Uuid TimeUuid7(std::uint64_t fileTime, const Uuid& random)
{
    constexpr std::uint64_t ticksFrom1601To1970 = 116'444'736'000'000'000;
    constexpr std::uint64_t ticksPerMillisecond = 10'000;
    const std::uint64_t ticks = fileTime - ticksFrom1601To1970;
    const std::uint64_t milliseconds = ticks / ticksPerMillisecond;
    // The 12 bits behind the version hold the fraction, so that UUIDs of one millisecond stay in order.
    const std::uint64_t fraction = ticks % ticksPerMillisecond * 4096 / ticksPerMillisecond;
    Uuid bytes = random;
    for (std::size_t i = 0; i < 6; ++i)
        bytes[i] = ByteOf(milliseconds, 5 - static_cast<int>(i));
    bytes[6] = ByteOf(fraction, 1);
    bytes[7] = ByteOf(fraction, 0);
    return StampUuid(bytes, 7);
}

std::optional<Uuid> ParseUuid(std::u16string_view text)
{
    if (text.size() >= 2 && text.front() == u'{' && text.back() == u'}')
        text = text.substr(1, text.size() - 2);
    const bool hyphens = text.find(u'-') != text.npos;
    Uuid uuid = {};
    for (std::size_t i = 0; i < uuid.size(); ++i) {
        if (hyphens && EndsGroup(i)) {
            if (!text.starts_with(u'-'))
                return std::nullopt;
            text.remove_prefix(1);
        }
        if (text.size() < 2 || HexDigit(text[0]) < 0 || HexDigit(text[1]) < 0)
            return std::nullopt;
        uuid[i] = static_cast<std::uint8_t>(HexDigit(text[0]) << 4 | HexDigit(text[1]));
        text.remove_prefix(2);
    }
    return text.empty() ? std::optional(uuid) : std::nullopt;
}

CString FormatUuid(const Uuid& uuid, bool hyphens)
{
    constexpr std::u16string_view digits = u"0123456789abcdef";
    CString text;
    for (std::size_t i = 0; i < uuid.size(); ++i) {
        if (hyphens && EndsGroup(i))
            text.Append(u'-');
        text.Append(digits[uuid[i] >> 4]).Append(digits[uuid[i] & 15]);
    }
    return text;
}
