#include "core/separators.h"

#include "text/block_scanner.h"
#include "text/compare.h"
#include "text/references.h"
#include "text/scanner.h"

namespace {

// The separator that stands at `at`, or None when the character there is none after all.
Separator ReadSeparator(std::u16string_view text, std::size_t at, const Syntax& syntax)
{
    const char16_t unit = text[at];
    const char16_t next = at + 1 < text.size() ? text[at + 1] : u'\0';
    const char16_t before = at > 0 ? text[at - 1] : u'\0';
    if (unit == u'\n')
        return {at, 1, Connector::Sequence};
    if (unit == u'%')
        return next == u'+' ? Separator{at, 2, Connector::Sequence} : Separator{};
    if (unit == u'|') {
        if (next == u'|')
            return {at, 2, Connector::Or};
        return next == u'&' ? Separator{at, 2, Connector::PipeErrors} : Separator{at, 1, Connector::Pipe};
    }
    // ">&", "<&" and "2>&1" are redirections.
    if (unit == u'&' && (before == u'>' || before == u'<'))
        return {};
    const bool ampersandPair = unit == u'&' && next == u'&';
    if (ampersandPair || (unit == syntax.commandSep && next == u'&'))
        return {at, 2, Connector::And};
    if (syntax.duplicateBugs && next == u'|' && at + 2 < text.size() && IsBlank(text[at + 2]))
        return {at, 2, Connector::PipeErrors};
    return unit == syntax.commandSep ? Separator{at, 1, Connector::Sequence} : Separator{};
}

// The end of the text line, blocks over several lines passed over.
Separator FindTextLineEnd(std::u16string_view text, std::size_t from, const Syntax& syntax)
{
    constexpr std::size_t npos = std::u16string_view::npos;
    BlockScanner scanner(syntax);
    for (std::size_t at = text.find(u'\n', from); at != npos; at = text.find(u'\n', at + 1)) {
        while (scanner.Feed(text.substr(from, at - from)) != npos) {
        }
        if (!scanner.InBlock())
            return {at, 1, Connector::Sequence};
    }
    return {};
}

} // namespace

Separator FindSeparator(std::u16string_view text, std::size_t from, CommandShape shape, const Syntax& syntax,
                        char16_t* unclosed)
{
    if (shape == CommandShape::TextLine)
        return FindTextLineEnd(text, from, syntax);
    const char16_t targets[] = {syntax.commandSep, u'&', u'|', u'\n', u'%', u'\0'};
    const std::u16string_view quoting =
        shape == CommandShape::Plain ? quotes::both : quotes::bothAndParentheses;
    while (from < text.size()) {
        char16_t open = 0;
        std::size_t at = scan(text, {targets, 5}, quoting, syntax, from, &open);
        // A parenthesis that is never closed is an ordinary character of its command.
        if (at == std::u16string_view::npos && open == u'(') {
            open = 0;
            at = scan(text, {targets, 5}, quotes::both, syntax, from, &open);
        }
        if (unclosed && open)
            *unclosed = open;
        if (at == std::u16string_view::npos)
            return {};
        const Separator found = ReadSeparator(text, at, syntax);
        const bool belongs = shape == CommandShape::If && syntax.duplicateBugs &&
                             (found.connector == Connector::And || found.connector == Connector::Or);
        if (found.connector != Connector::None && !belongs)
            return found;
        from = belongs ? found.Behind() : text[at] == u'%' ? PassReference(text, at, syntax) : at + 1;
    }
    return {};
}
