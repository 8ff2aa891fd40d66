#include "text/scanner.h"

#include "text/block_scanner.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;

char16_t ClosingOf(char16_t open)
{
    return open == u'(' ? u')' : open == u'[' ? u']' : open == u'{' ? u'}' : open;
}
bool IsBracket(char16_t unit) { return unit == u'(' || unit == u'['; }
bool Holds(std::u16string_view set, char16_t unit) { return set.find(unit) != npos; }

// Behind the quoted text that starts at `at`; npos when it is never closed.
std::size_t PassQuote(std::u16string_view text, std::size_t at, const Syntax& syntax)
{
    const char16_t quote = text[at];
    const std::size_t closing = text.find(quote, at + 1);
    if (!syntax.openQuotes)
        return closing == npos ? npos : closing + 1;
    // The joined lines of a block are parted by line feeds; an odd quote harms no line but its own.
    const std::size_t lineEnd = text.find(u'\n', at + 1);
    if (closing != npos && (lineEnd == npos || closing < lineEnd))
        return closing + 1;
    if (quote == u'`')
        return at + 1;
    return lineEnd == npos ? text.size() : lineEnd;
}

} // namespace

std::size_t FindClosing(std::u16string_view text, std::size_t open, std::u16string_view quoting,
                        const Syntax& syntax, int deepest)
{
    const char16_t opening = text[open];
    const char16_t closing = ClosingOf(opening);
    int depth = 0;
    for (std::size_t at = open; at < text.size();) {
        const char16_t unit = text[at];
        if (syntax.escapes && unit == syntax.escapeChar) {
            at += 2;
        } else if (!IsBracket(unit) && Holds(quoting, unit)) {
            at = PassQuote(text, at, syntax);
            if (at == npos)
                return npos;
        } else {
            depth += unit == opening ? 1 : 0;
            if (depth > deepest)
                return npos;
            if (unit == closing && --depth == 0)
                return at;
            ++at;
        }
    }
    return npos;
}

std::size_t scan(std::u16string_view text, std::u16string_view targets, std::u16string_view quoting,
                 const Syntax& syntax, std::size_t from, char16_t* unclosed)
{
    std::size_t at = from;
    while (at < text.size()) {
        const char16_t unit = text[at];
        if (syntax.escapes && unit == syntax.escapeChar && !Holds(targets, unit)) {
            at += 2;
            continue;
        }
        if (Holds(targets, unit))
            return at;
        if (!Holds(quoting, unit)) {
            ++at;
            continue;
        }
        std::size_t behind;
        if (IsBracket(unit)) {
            behind = unit == u'(' ? FindBlockEnd(text, at, syntax) : FindClosing(text, at, quoting, syntax);
            behind = behind == npos ? npos : behind + 1;
        } else {
            behind = PassQuote(text, at, syntax);
        }
        if (behind == npos) {
            if (unclosed)
                *unclosed = unit;
            return npos;
        }
        at = behind;
    }
    return npos;
}
