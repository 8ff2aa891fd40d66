#include "commands/expr_reader.h"

#include <algorithm>
#include <string>

#include "expand/decimal.h"
#include "files/regex.h"
#include "lang/errors.h"
#include "text/compare.h"
#include "text/encoding.h"
#include "text/format.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;

struct ExprError {
    unsigned code;
    CString culprit;
};

bool IsWhole(std::u16string_view text)
{
    if (text.starts_with(u'-'))
        text.remove_prefix(1);
    return !text.empty() && std::all_of(text.begin(), text.end(), IsDigit);
}

Decimal ToNumber(std::u16string_view text)
{
    if (!IsWhole(text))
        throw ExprError{errors::invalidNumber, CString(text)};
    const bool negative = text.starts_with(u'-');
    const Decimal number = Decimal::FromDigits(ToUtf8(text.substr(negative ? 1 : 0)));
    return negative ? -number : number;
}

CString ToText(const Decimal& number) { return FromAscii(number.WholeText(10)); }
CString ToText(bool truth) { return truth ? u"1" : u"0"; }

Decimal Calculate(char16_t operation, const Decimal& a, const Decimal& b)
{
    switch (operation) {
    case u'+': return a + b;
    case u'-': return a - b;
    case u'*': return a * b;
    default: break;
    }
    if (b.Sign() == 0)
        throw ExprError{errors::divisionByZero, {}};
    return operation == u'/' ? Decimal::Quotient(a, b) : Decimal::Remainder(a, b);
}

int Compare(std::u16string_view a, std::u16string_view b)
{
    return IsWhole(a) && IsWhole(b) ? Decimal::Compare(ToNumber(a), ToNumber(b)) : a.compare(b);
}

bool Holds(std::u16string_view operation, int order)
{
    if (operation == u"<")
        return order < 0;
    if (operation == u"<=")
        return order <= 0;
    if (operation == u">")
        return order > 0;
    if (operation == u">=")
        return order >= 0;
    return operation == u"!=" ? order != 0 : order == 0;
}

bool HasGroup(std::u16string_view regex)
{
    for (std::size_t at = regex.find(u'\\'); at != npos && at + 1 < regex.size();
         at = regex.find(u'\\', at + 2))
        if (regex[at + 1] == u'(')
            return true;
    return false;
}

// The expression must match from the first unit on. Answers the first group, or without one the number of
// units.
CString Match(std::u16string_view text, std::u16string_view expression)
{
    const Regex regex(expression, RegexSyntax::Grep, RegexMatch::Anywhere, RegexCase::Exact);
    if (!regex.IsValid())
        throw ExprError{errors::syntax, CString(expression)};
    std::vector<Regex::Span> groups;
    const bool matches = regex.Search(text, 0, &groups) && groups[0].start == 0;
    if (!HasGroup(expression))
        return Format(u"%u", matches ? groups[0].length : std::size_t{0});
    const bool took = matches && groups.size() > 1 && groups[1].start != npos;
    return took ? CString(text.substr(groups[1].start, groups[1].length)) : CString();
}

CString Substring(std::u16string_view text, std::u16string_view place, std::u16string_view length)
{
    const auto start = static_cast<std::uint64_t>(std::max<std::int64_t>(0, ToNumber(place).ToInt64()));
    const auto count = static_cast<std::uint64_t>(std::max<std::int64_t>(0, ToNumber(length).ToInt64()));
    if (start == 0 || start > text.size())
        return {};
    return CString(text.substr(static_cast<std::size_t>(start - 1),
                               static_cast<std::size_t>(std::min<std::uint64_t>(count, text.size()))));
}

CString Index(std::u16string_view text, std::u16string_view units)
{
    const std::size_t at = text.find_first_of(units);
    return Format(u"%u", at == npos ? std::size_t{0} : at + 1);
}

// From the operators that bind least.
constexpr std::u16string_view levels[][7] = {
    {u"|"}, {u"&"}, {u"<", u"<=", u"=", u"==", u"!=", u">=", u">"}, {u"+", u"-"}, {u"*", u"/", u"%"}, {u":"},
};

CString Combine(const CString& a, const CString& operation, const CString& b)
{
    const char16_t first = operation.front();
    if (first == u'|') {
        if (!IsNothing(a))
            return a;
        return IsNothing(b) ? CString(u"0") : b;
    }
    if (first == u'&')
        return IsNothing(a) || IsNothing(b) ? CString(u"0") : a;
    if (first == u':')
        return Match(a, b);
    if (std::u16string_view(u"+-*/%").find(first) != npos)
        return ToText(Calculate(first, ToNumber(a), ToNumber(b)));
    return ToText(Holds(operation, Compare(a, b)));
}

class ExprReader {
public:
    explicit ExprReader(const std::vector<CString>& all) : words(all) {}

    CString Run()
    {
        const CString value = Level(0);
        if (at < words.size())
            throw ExprError{errors::syntax, words[at]};
        return value;
    }

private:
    CString Level(std::size_t level)
    {
        if (level == std::size(levels))
            return Term();
        CString value = Level(level + 1);
        while (at < words.size() && IsOperator(level)) {
            const CString operation = words[at++];
            value = Combine(value, operation, Level(level + 1));
        }
        return value;
    }

    bool IsOperator(std::size_t level) const
    {
        return std::any_of(std::begin(levels[level]), std::end(levels[level]),
                           [&](std::u16string_view each) { return !each.empty() && words[at] == each; });
    }

    const CString& Word()
    {
        if (at >= words.size())
            throw ExprError{errors::missingArgument, {}};
        return words[at++];
    }

    CString Term()
    {
        const CString& word = Word();
        if (word == u"(")
            return Bracket();
        if (word == u")")
            throw ExprError{errors::syntax, word};
        if (word == u"+")
            return Word();
        if (EqualNoCase(word, u"length"))
            return Format(u"%u", Nested().size());
        if (EqualNoCase(word, u"match"))
            return Two(Match);
        if (EqualNoCase(word, u"index"))
            return Two(Index);
        if (EqualNoCase(word, u"substr")) {
            const CString text = Nested();
            const CString place = Nested();
            return Substring(text, place, Nested());
        }
        return word;
    }

    CString Two(CString (*function)(std::u16string_view, std::u16string_view))
    {
        const CString text = Nested();
        return function(text, Nested());
    }

    // A term inside another one.
    CString Nested()
    {
        Enter();
        const CString value = Term();
        --depth;
        return value;
    }

    CString Bracket()
    {
        Enter();
        const CString value = Level(0);
        --depth;
        if (at >= words.size() || !(words[at] == u")"))
            throw ExprError{errors::missingParenthesis, {}};
        ++at;
        return value;
    }

    void Enter()
    {
        constexpr int deepest = 200;
        if (++depth > deepest)
            throw ExprError{errors::nestedTooDeep, {}};
    }

    const std::vector<CString>& words;
    std::size_t at = 0;
    int depth = 0;
};

} // namespace

bool IsNothing(std::u16string_view value)
{
    return value.empty() || (IsWhole(value) && value.find_first_not_of(u"-0") == npos);
}

ExprAnswer CalculateExpr(const std::vector<CString>& words)
{
    try {
        return {ExprReader(words).Run(), 0, {}};
    } catch (const ExprError& failure) {
        return {{}, failure.code, failure.culprit};
    } catch (const DecimalError& failure) {
        return {{}, failure.code, {}};
    }
}
