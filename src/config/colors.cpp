#include "config/colors.h"

#include "text/compare.h"
#include "text/format.h"
#include "text/numbers.h"

namespace {

constexpr unsigned bright = 8;
constexpr std::size_t shortestName = 3;

constexpr const char16_t* names[nColors] = {
    u"Black",      u"Blue",           u"Green",         u"Cyan",        u"Red",          u"Magenta",
    u"Yellow",     u"White",          u"Bright Black",  u"Bright Blue", u"Bright Green", u"Bright Cyan",
    u"Bright Red", u"Bright Magenta", u"Bright Yellow", u"Bright White"};

struct OtherName {
    const char16_t* name;
    unsigned color;
};
constexpr OtherName otherNames[] = {{u"Gray", bright}, {u"Grey", bright}, {u"Brown", 6}};

// "Gre" is Green: it stands before Grey in every search.
bool Abbreviates(std::u16string_view word, std::u16string_view name)
{
    return word.size() >= shortestName && BeginsNoCase(name, word);
}

// The blank-delimited word at or after `at`; `at` moves behind it.
std::u16string_view TakeWord(std::u16string_view text, std::size_t& at)
{
    while (at < text.size() && IsBlank(text[at]))
        ++at;
    const std::size_t start = at;
    while (at < text.size() && !IsBlank(text[at]))
        ++at;
    return text.substr(start, at - start);
}

std::optional<unsigned> ColorNumber(std::u16string_view word)
{
    if (word.empty() || !IsDigit(word.front()))
        return std::nullopt;
    std::size_t used = 0;
    const auto number = ReadDecimal(word, &used);
    if (used != word.size() || *number >= static_cast<std::int64_t>(nColors))
        return std::nullopt;
    return static_cast<unsigned>(*number);
}

std::optional<unsigned> PlainName(std::u16string_view word)
{
    for (unsigned color = 0; color < bright; ++color)
        if (Abbreviates(word, names[color]))
            return color;
    return std::nullopt;
}

std::optional<unsigned> ColorWord(std::u16string_view word)
{
    if (const auto number = ColorNumber(word))
        return number;
    if (const auto plain = PlainName(word))
        return plain;
    for (const OtherName& other : otherNames)
        if (Abbreviates(word, other.name))
            return other.color;
    return std::nullopt;
}

} // namespace

const char16_t* ColorName(unsigned color) { return color < nColors ? names[color] : nullptr; }

CString ColorText(unsigned attribute)
{
    return Format(u"%s on %s", names[attribute & 15], names[attribute >> 4 & 15]);
}

std::optional<unsigned> ReadColor(std::u16string_view text, std::size_t& at)
{
    std::size_t place = at;
    const std::u16string_view word = TakeWord(text, place);
    std::optional<unsigned> color;
    if (Abbreviates(word, u"Bright")) {
        color = PlainName(TakeWord(text, place));
        if (color)
            *color |= bright;
    } else {
        color = ColorWord(word);
    }
    if (color)
        at = place;
    return color;
}

std::optional<unsigned> ReadColorPair(std::u16string_view text, std::size_t& at)
{
    std::size_t place = at;
    const auto foreground = ReadColor(text, place);
    if (!foreground || !EqualNoCase(TakeWord(text, place), u"on"))
        return std::nullopt;
    const auto background = ReadColor(text, place);
    if (!background || *background == *foreground)
        return std::nullopt;
    at = place;
    return *background * 16 + *foreground;
}

std::optional<unsigned> ParseColorPair(std::u16string_view text)
{
    std::size_t at = 0;
    const auto pair = ReadColorPair(text, at);
    if (!pair || !TakeWord(text, at).empty())
        return std::nullopt;
    return pair;
}

std::optional<unsigned> ParseColorDigits(std::u16string_view text)
{
    if (text.empty() || text.size() > 2)
        return std::nullopt;
    unsigned attributes = 0;
    for (const char16_t unit : text) {
        const int digit = HexDigit(unit);
        if (digit < 0)
            return std::nullopt;
        attributes = attributes * 16 + static_cast<unsigned>(digit);
    }
    return attributes;
}
