#include "text/references.h"

#include "text/compare.h"
#include "text/scanner.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;

// The bracket that opens what the reference holds, or npos.
std::size_t FindOpening(std::u16string_view text, std::size_t at)
{
    constexpr std::size_t longestFunctionName = 31;
    const char16_t next = text[at + 1];
    if (next == u'(' || next == u'{')
        return at + 1;
    if (next == u'[')
        return at + 2 < text.size() && text[at + 2] == u'[' ? at + 1 : npos;
    if (next != u'@')
        return npos;
    const std::size_t open =
        text.substr(0, at + 2 + longestFunctionName + 1).find_first_of(u"[ \t&|<>\n%", at + 2);
    return open != npos && text[open] == u'[' ? open : npos;
}

// The "%" that closes "%name%", "%name:old=new%" or "%name:~1,2%"; npos when none does. A parameter's number
// needs no end.
std::size_t FindNameEnd(std::u16string_view text, std::size_t at, const Syntax& syntax)
{
    std::size_t colon = at + 1;
    while (colon < text.size() &&
           (IsLetterOrDigit(text[colon]) || text[colon] == u'_' || text[colon] == u'$'))
        ++colon;
    if (colon == at + 1 || colon >= text.size())
        return npos;
    if (text[colon] == u'%')
        return IsDigit(text[at + 1]) ? npos : colon;
    if (text[colon] != u':')
        return npos;
    std::size_t end = colon + 1;
    while (end < text.size() && text[end] != u'%' && text[end] != u'\n')
        end += syntax.escapes && text[end] == syntax.escapeChar ? 2 : 1;
    if (end >= text.size() || text[end] != u'%')
        return npos;
    const std::u16string_view modifier = text.substr(colon + 1, end - colon - 1);
    const std::size_t equals = modifier.find(u'=');
    if (!modifier.starts_with(u'~') && equals == npos)
        return npos;
    // Two references with a separator between them are no modifier, though a "=" may stand there, too.
    const bool blanks = modifier.substr(0, equals).find_first_of(u" \t") != npos;
    return blanks && !syntax.openQuotes ? npos : end;
}

} // namespace

std::size_t PassReference(std::u16string_view text, std::size_t at, const Syntax& syntax)
{
    if (at + 1 >= text.size())
        return at + 1;
    if (text[at + 1] == u'%')
        return at + 2;
    const std::size_t open = FindOpening(text, at);
    const std::size_t end =
        open != npos ? FindClosing(text, open, quotes::back, syntax) : FindNameEnd(text, at, syntax);
    return end == npos ? at + 1 : end + 1;
}
