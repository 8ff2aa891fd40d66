#include "text/numbers.h"

#include <limits>

#include "text/compare.h"

namespace {

std::optional<std::int64_t> Read(std::u16string_view text, bool prefixes, std::size_t* used)
{
    std::size_t at = 0;
    while (at < text.size() && (IsBlank(text[at]) || text[at] == u'\r' || text[at] == u'\n'))
        ++at;
    const bool negative = at < text.size() && text[at] == u'-';
    if (at < text.size() && (text[at] == u'-' || text[at] == u'+'))
        ++at;
    // The least number has no positive counterpart.
    const std::uint64_t limit = std::uint64_t{std::numeric_limits<std::int64_t>::max()} + (negative ? 1 : 0);
    unsigned base = 10;
    if (prefixes && at < text.size() && text[at] == u'0') {
        const bool hexadecimal =
            at + 2 < text.size() && UpperCase(text[at + 1]) == u'X' && HexDigit(text[at + 2]) >= 0;
        base = hexadecimal ? 16 : 8;
        at += hexadecimal ? 2 : 0;
    }
    const std::size_t firstDigit = at;
    std::uint64_t value = 0;
    for (; at < text.size() && IsDigitOf(text[at], static_cast<int>(base)); ++at) {
        const unsigned digit = static_cast<unsigned>(HexDigit(text[at]));
        value = value > (limit - digit) / base ? limit : value * base + digit;
    }
    if (at == firstDigit)
        return std::nullopt;
    if (used)
        *used = at;
    return static_cast<std::int64_t>(negative ? 0 - value : value);
}

} // namespace

std::optional<std::int64_t> ReadInteger(std::u16string_view text, std::size_t* used)
{
    return Read(text, true, used);
}

std::optional<std::int64_t> ReadDecimal(std::u16string_view text, std::size_t* used)
{
    return Read(text, false, used);
}

std::optional<std::int64_t> ParseInteger(std::u16string_view text)
{
    std::size_t used = 0;
    const auto value = ReadInteger(text, &used);
    while (used < text.size() && IsBlank(text[used]))
        ++used;
    return value && used == text.size() ? value : std::nullopt;
}

std::optional<std::uint64_t> ParseDuration(std::u16string_view text, std::uint64_t scale)
{
    constexpr std::uint64_t longest = 4'000'000'000; // units
    std::uint64_t whole = 0;
    std::size_t at = 0;
    for (; at < text.size() && IsDigit(text[at]); ++at)
        if ((whole = whole * 10 + (text[at] - u'0')) > longest)
            return std::nullopt;
    std::uint64_t duration = whole * scale;
    const bool point = at < text.size() && (text[at] == u'.' || text[at] == u',');
    if (point)
        for (std::uint64_t unit = scale / 10; ++at < text.size() && IsDigit(text[at]); unit /= 10)
            duration += (text[at] - u'0') * unit;
    const bool anyDigit = text.size() > (point ? 1u : 0u);
    return anyDigit && at == text.size() ? std::optional(duration) : std::nullopt;
}
