#include "expand/delayed_expansion.h"

#include "text/compare.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;

bool MayBegin(char16_t unit) { return IsLetterOrDigit(unit) || unit == u'%' || unit == u'_'; }

bool MayContinue(char16_t unit)
{
    return IsLetterOrDigit(unit) || std::u16string_view(u"%,-_~").find(unit) != npos;
}

// The reference that the "!" at `at` opens.
DelayedReference Read(std::u16string_view text, std::size_t at, const Syntax& syntax)
{
    std::size_t end = at + 1;
    if (end >= text.size() || !MayBegin(text[end]))
        return {};
    // Everyday scripts call their variables list[1] and a.b.
    while (end < text.size() && (MayContinue(text[end]) || (syntax.openQuotes && text[end] != u'!' &&
                                                            text[end] != u':' && text[end] != u'\n')))
        ++end;
    if (end < text.size() && text[end] == u':') {
        const std::size_t closing = text.find(u'!', end);
        // A single letter before the colon is as likely a drive, unless a modifier follows.
        const bool drive =
            end == at + 2 && closing != npos && text.substr(end, closing - end).find_first_of(u"~=") == npos;
        end = drive ? npos : closing;
    }
    if (end == npos || end >= text.size() || text[end] != u'!')
        return {};
    return {at, end + 1 - at, text.substr(at + 1, end - at - 1)};
}

// Whether the first unit of the text is there only to make the "!" behind it an ordinary character.
bool EscapesSign(std::u16string_view text, bool inQuotes, const Syntax& syntax)
{
    if (!syntax.openQuotes || !syntax.escapes || text.front() != syntax.escapeChar)
        return false;
    const std::size_t sign = inQuotes ? 1 : 2;
    return text.size() > sign && text[sign] == u'!' && text[sign - 1] == syntax.escapeChar;
}

} // namespace

DelayedReference FindDelayedReference(std::u16string_view text, std::size_t from, bool& inQuotes,
                                      const Syntax& syntax)
{
    for (std::size_t at = from; at < text.size(); ++at) {
        const char16_t unit = text[at];
        if (EscapesSign(text.substr(at), inQuotes, syntax))
            return {at, 1, {}};
        if (unit == u'!') {
            if (const DelayedReference found = Read(text, at, syntax); found.length != 0)
                return found;
        } else if (unit == u'"') {
            inQuotes = !inQuotes;
        } else if (unit == u'`') {
            const std::size_t closing = text.find(u'`', at + 1);
            at = closing == npos ? at : closing;
        } else if (unit == syntax.escapeChar && syntax.escapes && !inQuotes) {
            ++at;
        }
    }
    return {text.size(), 0, {}};
}
