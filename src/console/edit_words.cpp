#include "console/edit_words.h"

#include <algorithm>

#include "text/cell_width.h"
#include "text/compare.h"

namespace {

constexpr char16_t firstBeyondAscii = 0x80;

bool InWord(char16_t unit) { return unit == u'_' || unit >= firstBeyondAscii || IsLetterOrDigit(unit); }

bool PartsWords(char16_t unit) { return IsBlank(unit) || unit == u'\n'; }

// In the line that begins at `line`, as many cells from its beginning as `at` is from `begin`.
std::size_t PlaceInLine(std::u16string_view text, std::size_t line, std::size_t begin, std::size_t at)
{
    const int wanted = TextWidth(text.substr(begin, at - begin));
    const std::size_t end = LineEndAt(text, line);
    std::size_t place = line;
    for (int cells = 0; cells < wanted && place < end;) {
        const std::size_t next = NextCharacter(text, place);
        cells += TextWidth(text.substr(place, next - place));
        place = next;
    }
    return place;
}

} // namespace

std::size_t WordLeftOf(std::u16string_view text, std::size_t at)
{
    while (at > 0 && !InWord(text[at - 1]))
        --at;
    while (at > 0 && InWord(text[at - 1]))
        --at;
    return at;
}

std::size_t WordRightOf(std::u16string_view text, std::size_t at)
{
    while (at < text.size() && InWord(text[at]))
        ++at;
    while (at < text.size() && !InWord(text[at]))
        ++at;
    return at;
}

std::size_t WordEndAt(std::u16string_view text, std::size_t at)
{
    while (at < text.size() && !InWord(text[at]))
        ++at;
    while (at < text.size() && InWord(text[at]))
        ++at;
    return at;
}

std::size_t ArgumentLeftOf(std::u16string_view text, std::size_t at)
{
    std::size_t found = 0;
    bool quoted = false;
    bool inside = false;
    for (std::size_t i = 0; i < at; ++i) {
        if (text[i] == u'"')
            quoted = !quoted;
        const bool blank = PartsWords(text[i]) && !quoted;
        if (!blank && !inside)
            found = i;
        inside = !blank;
    }
    return found;
}

std::size_t ArgumentRightOf(std::u16string_view text, std::size_t at)
{
    bool quoted = std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(at), u'"') % 2 != 0;
    if (!quoted)
        while (at < text.size() && PartsWords(text[at]))
            ++at;
    for (; at < text.size() && (quoted || !PartsWords(text[at])); ++at)
        if (text[at] == u'"')
            quoted = !quoted;
    return at;
}

std::size_t LineBeginAt(std::u16string_view text, std::size_t at)
{
    const std::size_t found = at == 0 ? text.npos : text.rfind(u'\n', at - 1);
    return found == text.npos ? 0 : found + 1;
}

std::size_t LineEndAt(std::u16string_view text, std::size_t at)
{
    return std::min(text.find(u'\n', at), text.size());
}

std::size_t PlaceInLineAbove(std::u16string_view text, std::size_t at)
{
    const std::size_t begin = LineBeginAt(text, at);
    return begin == 0 ? text.npos : PlaceInLine(text, LineBeginAt(text, begin - 1), begin, at);
}

std::size_t PlaceInLineBelow(std::u16string_view text, std::size_t at)
{
    const std::size_t end = LineEndAt(text, at);
    return end == text.size() ? text.npos : PlaceInLine(text, end + 1, LineBeginAt(text, at), at);
}
