#include "files/line_search.h"
#include "files/required_text.h"
#include "text/cell_width.h"
#include "text/compare.h"
#include "text/encoding.h"

namespace {

bool IsOfWord(char16_t unit) { return IsLetterOrDigit(unit) || unit == u'_'; }

// Whether no word goes on over the match's beginning or end; a match of nothing is no word.
bool IsWholeWord(std::u16string_view line, Regex::Span match)
{
    const std::size_t end = match.start + match.length;
    const auto goesOn = [&](std::size_t at) {
        return at > 0 && at < line.size() && IsOfWord(line[at - 1]) && IsOfWord(line[at]);
    };
    return match.length > 0 && !goesOn(match.start) && !goesOn(end);
}

CString ExpressionOfWildcards(std::u16string_view text)
{
    constexpr std::u16string_view special = u"\\^$.|+()[]{}*?";
    CString expression;
    for (const char16_t unit : text) {
        if (unit == u'*') {
            expression.Append(u".*");
        } else if (unit == u'?') {
            expression.Append(u'.');
        } else {
            if (special.find(unit) != special.npos)
                expression.Append(u'\\');
            expression.Append(unit);
        }
    }
    return expression;
}

} // namespace

LineSearch::LineSearch(std::u16string_view text, LineSearchKind kind, RegexCase letters, RegexSyntax syntax)
    : beyondAscii(!IsAscii(text)), letterCase(letters)
{
    if (kind == LineSearchKind::Wildcards && text.find_first_of(u"*?") == text.npos)
        kind = LineSearchKind::Plain;
    if (kind == LineSearchKind::Plain) {
        plain = text;
        needed = beyondAscii ? CString() : plain;
        return;
    }
    const bool wildcards = kind == LineSearchKind::Wildcards;
    const CString expression = wildcards ? ExpressionOfWildcards(text) : CString(text);
    const RegexSyntax dialect = wildcards ? RegexSyntax::Perl : syntax;
    regex.emplace(expression, dialect, RegexMatch::Anywhere, letters);
    needed = RequiredText(expression, dialect, letters);
}

std::optional<Regex::Span> LineSearch::Find(std::u16string_view line) const
{
    std::optional<Regex::Span> found = FindFrom(line, 0);
    while (wholeWords && found && !IsWholeWord(line, *found)) {
        const std::size_t next = NextCharacter(line, found->start);
        found = next > found->start ? FindFrom(line, next) : std::nullopt;
    }
    return found;
}

std::optional<Regex::Span> LineSearch::FindFrom(std::u16string_view line, std::size_t from) const
{
    if (regex) {
        // Where a match stands costs memory, and most lines hold none.
        std::vector<Regex::Span> groups;
        if (!regex->Search(line, from) || !regex->Search(line, from, &groups) || groups.empty())
            return std::nullopt;
        return groups.front();
    }
    const std::size_t at =
        letterCase == RegexCase::Exact ? line.find(plain.view(), from) : FindNoCase(line, plain, from);
    if (at == line.npos)
        return std::nullopt;
    return Regex::Span{at, plain.size()};
}

std::optional<ByteSearch> LineSearch::Prefilter(std::size_t width) const
{
    if (needed.empty())
        return std::nullopt;
    std::string bytes;
    for (const char16_t unit : needed.view()) {
        bytes.push_back(static_cast<char>(unit));
        bytes.append(width - 1, '\0');
    }
    return ByteSearch(bytes, letterCase == RegexCase::Exact ? ByteCase::Exact : ByteCase::IgnoreAscii);
}
