#include "text/numbers.h"

#include <limits>

#include "text/compare.h"

namespace {

int DigitValue(char16_t unit)
{
    if (IsDigit(unit))
        return unit - u'0';
    const char16_t upper = UpperCase(unit);
    return upper >= u'A' && upper <= u'F' ? upper - u'A' + 10 : 99;
}

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
            at + 2 < text.size() && UpperCase(text[at + 1]) == u'X' && DigitValue(text[at + 2]) < 16;
        base = hexadecimal ? 16 : 8;
        at += hexadecimal ? 2 : 0;
    }
    const std::size_t firstDigit = at;
    std::uint64_t value = 0;
    for (; at < text.size() && DigitValue(text[at]) < static_cast<int>(base); ++at) {
        const unsigned digit = static_cast<unsigned>(DigitValue(text[at]));
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
