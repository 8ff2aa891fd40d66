#include "files/line_search.h"

#include <algorithm>

#include "text/compare.h"

namespace {

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
    : letterCase(letters)
{
    if (kind == LineSearchKind::Wildcards && text.find_first_of(u"*?") == text.npos)
        kind = LineSearchKind::Plain;
    if (kind == LineSearchKind::Plain)
        plain = text;
    else if (kind == LineSearchKind::Wildcards)
        regex.emplace(ExpressionOfWildcards(text), RegexSyntax::Perl, RegexMatch::Anywhere, letters);
    else
        regex.emplace(text, syntax, RegexMatch::Anywhere, letters);
}

std::optional<Regex::Span> LineSearch::Find(std::u16string_view line) const
{
    if (regex) {
        std::vector<Regex::Span> groups;
        if (!regex->Search(line, 0, &groups) || groups.empty())
            return std::nullopt;
        return groups.front();
    }
    const std::size_t at = letterCase == RegexCase::Exact ? line.find(plain.view()) : FindNoCase(line, plain);
    if (at == line.npos)
        return std::nullopt;
    return Regex::Span{at, plain.size()};
}

std::optional<ByteSearch> LineSearch::Prefilter(std::size_t width) const
{
    const std::u16string_view text = plain;
    if (regex || text.empty() ||
        std::any_of(text.begin(), text.end(), [](char16_t unit) { return unit >= 128; }))
        return std::nullopt;
    std::string bytes;
    for (const char16_t unit : text) {
        bytes.push_back(static_cast<char>(unit));
        bytes.append(width - 1, '\0');
    }
    return ByteSearch(bytes, letterCase == RegexCase::Exact ? ByteCase::Exact : ByteCase::IgnoreAscii);
}
