#include "batch/condition_parser.h"

#include <algorithm>
#include <iterator>

#include "expand/evaluator.h"
#include "text/compare.h"
#include "text/escapes.h"
#include "text/numbers.h"
#include "text/scanner.h"
#include "text/words.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;

bool IsSpace(char16_t unit) { return IsBlank(unit) || unit == u'\n' || unit == u'\r'; }

std::size_t PassSpaces(std::u16string_view text, std::size_t at)
{
    while (at < text.size() && IsSpace(text[at]))
        ++at;
    return at;
}

bool IsNameUnit(char16_t unit) { return IsLetterOrDigit(unit) || unit == u'_' || unit == u'$'; }

// Behind the bracket that closes the one at `open`; when it is never closed, just behind the opening one.
std::size_t PassBrackets(std::u16string_view text, std::size_t open, const Syntax& syntax)
{
    if (text[open] == u'{') {
        const std::size_t closing = text.find(u'}', open);
        return closing == npos ? open + 1 : closing + 1;
    }
    const std::size_t closing = FindClosing(text, open, quotes::back, syntax);
    return closing == npos ? open + 1 : closing + 1;
}

// Behind the reference whose "%" stands at `at`. Only what may hold blanks matters: brackets and modifiers.
std::size_t PassReference(std::u16string_view text, std::size_t at, const Syntax& syntax)
{
    std::size_t end = at + 1;
    if (end < text.size() && (text[end] == u'(' || text[end] == u'{' || text[end] == u'['))
        return PassBrackets(text, end, syntax);
    if (end < text.size() && (text[end] == u'@' || text[end] == u'%' || text[end] == u'_'))
        ++end;
    while (end < text.size() && IsNameUnit(text[end]))
        ++end;
    if (end == text.size())
        return end;
    if (text[end] == u'[')
        return PassBrackets(text, end, syntax);
    const std::size_t closing = text[end] == u':' ? text.find(u'%', end) : npos;
    return closing != npos && closing < text.find(u'\n', end) ? closing + 1 : end;
}

std::size_t PassQuoted(std::u16string_view text, std::size_t at)
{
    const std::size_t lineEnd = std::min(text.find(u'\n', at), text.size());
    const std::size_t closing = text.find(text[at], at + 1);
    if (closing != npos && closing < lineEnd)
        return closing + 1;
    return text[at] == u'"' ? lineEnd : at + 1;
}

// An expanded word ends at a blank outside quotes.
std::size_t EndOfPlainWord(std::u16string_view text, const Syntax& syntax)
{
    std::size_t at = 0;
    while (at < text.size() && !IsSpace(text[at])) {
        if (text[at] == u'"' || text[at] == u'`')
            at = PassQuoted(text, at);
        else
            at += syntax.escapes && text[at] == syntax.escapeChar ? 2 : 1;
    }
    return std::min(at, text.size());
}

struct NamedTest {
    const char16_t* name;
    ConditionTest test;
};

constexpr NamedTest tests[] = {
    {u"exist", ConditionTest::Exist},
    {u"isfile", ConditionTest::IsFile},
    {u"isdir", ConditionTest::IsDirectory},
    {u"direxist", ConditionTest::IsDirectory},
    {u"isinternal", ConditionTest::IsInternal},
    {u"isplugin", ConditionTest::IsPlugin},
    {u"plugin", ConditionTest::Plugin},
    {u"isalias", ConditionTest::IsAlias},
    {u"isfunction", ConditionTest::IsFunction},
    {u"islibrary", ConditionTest::IsLibrary},
    {u"isbatch", ConditionTest::IsBatch},
    {u"islabel", ConditionTest::IsLabel},
    {u"defined", ConditionTest::Defined},
    {u"cmdextversion", ConditionTest::ExtensionVersion},
    {u"isvisible", ConditionTest::IsVisible},
    {u"iswindow", ConditionTest::IsWindow},
    {u"ishung", ConditionTest::IsHung},
    {u"isapp", ConditionTest::IsApplication},
    {u"issymlink", ConditionTest::IsSymbolicLink},
    {u"isreadable", ConditionTest::IsReadable},
    {u"iswriteable", ConditionTest::IsWriteable},
};

const NamedTest* FindTest(std::u16string_view word)
{
    const auto* found = std::find_if(std::begin(tests), std::end(tests),
                                     [&](const NamedTest& row) { return EqualNoCase(row.name, word); });
    return found == std::end(tests) ? nullptr : found;
}

enum class Operator {
    None,
    Equal,
    NotEqual,
    Greater,
    GreaterEqual,
    Less,
    LessEqual,
    Identical,
    Match,
    NoMatch
};

struct NamedOperator {
    const char16_t* name;
    Operator meaning;
};

constexpr NamedOperator operators[] = {
    {u"==", Operator::Equal},        {u"EQ", Operator::Equal},         {u"EQU", Operator::Equal},
    {u"EQL", Operator::Equal},       {u"NE", Operator::NotEqual},      {u"NEQ", Operator::NotEqual},
    {u"!=", Operator::NotEqual},     {u"GT", Operator::Greater},       {u"GTR", Operator::Greater},
    {u"GE", Operator::GreaterEqual}, {u"GEQ", Operator::GreaterEqual}, {u"LT", Operator::Less},
    {u"LSS", Operator::Less},        {u"LE", Operator::LessEqual},     {u"LEQ", Operator::LessEqual},
    {u"EQC", Operator::Identical},   {u"=~", Operator::Match},         {u"!~", Operator::NoMatch},
};

Operator OperatorOf(std::u16string_view word, bool exactEqual)
{
    if (word == u"=")
        return exactEqual ? Operator::Identical : Operator::Equal;
    for (const NamedOperator& row : operators)
        if (EqualNoCase(row.name, word))
            return row.meaning;
    return Operator::None;
}

bool HasSign(std::u16string_view text) { return !text.empty() && (text[0] == u'-' || text[0] == u'+'); }

// Whole hexadecimal digits behind "0x".
bool IsHexadecimal(std::u16string_view text)
{
    return text.size() > 2 && text[0] == u'0' && (text[1] == u'x' || text[1] == u'X') &&
           text.find_first_not_of(u"0123456789abcdefABCDEF", 2) == npos;
}

// Whole numbers that fit are compared here; the rest is the evaluator's.
std::optional<std::int64_t> SmallNumber(std::u16string_view text, char16_t decimalChar)
{
    constexpr std::size_t longest = 16;
    if (text.size() > longest || text.find(u'.') != npos || text.find(decimalChar) != npos)
        return std::nullopt;
    return IsHexadecimal(HasSign(text) ? text.substr(1) : text) ? ReadInteger(text) : ReadDecimal(text);
}

int SignOf(std::int64_t number) { return number < 0 ? -1 : number > 0 ? 1 : 0; }

bool Holds(Operator op, int sign)
{
    switch (op) {
    case Operator::Equal: return sign == 0;
    case Operator::NotEqual: return sign != 0;
    case Operator::Greater: return sign > 0;
    case Operator::GreaterEqual: return sign >= 0;
    case Operator::Less: return sign < 0;
    case Operator::LessEqual: return sign <= 0;
    default: return false;
    }
}

bool StartsWithSymbol(std::u16string_view word) { return word.starts_with(u"==") || word.starts_with(u"!="); }

// "==" or "!=" inside a word, as in "a"=="b"; npos when the word holds none outside quotes and brackets.
std::size_t FindSymbol(std::u16string_view word, const Syntax& syntax)
{
    std::size_t at = scan(word, u"=!", quotes::both, syntax);
    while (at != npos && !StartsWithSymbol(word.substr(at)))
        at = scan(word, u"=!", quotes::both, syntax, at + 1);
    // "!name!==" is a reference that nothing has replaced.
    return at != npos && word.substr(at).starts_with(u"!==") ? at + 1 : at;
}

constexpr int deepestGroup = 50;

class Parser {
public:
    Parser(CString& over, const ConditionRules& inForce, ConditionWorld& asked, int nesting)
        : text(over), rules(inForce), world(asked), depth(nesting)
    {}

    int Run()
    {
        bool value = Clause();
        for (Joiner joiner = NextJoiner(); !failed && joiner != Joiner::None; joiner = NextJoiner()) {
            const bool right = Clause();
            if (joiner == Joiner::And)
                value = value && right;
            else if (joiner == Joiner::Or)
                value = value || right;
            else
                value = value != right;
        }
        text.Erase(0, PassSpaces(text, 0));
        if (failed || (rules.needsCommand && text.empty()))
            return condition::syntaxError;
        return value ? condition::holds : condition::fails;
    }

private:
    enum class Joiner { None, And, Or, Xor };

    std::u16string_view Peek();
    void Cut(std::size_t count);
    CString Take();
    CString TakeOperand();
    CString Operand(CString word) const;
    Joiner NextJoiner();
    bool TakeNot();
    Operator TakeOperator();
    Operator SplitAtEqualSign(CString& left, CString& right) const;

    bool Fail();
    bool Clause();
    std::optional<bool> Group();
    std::optional<bool> SingleTest();
    bool Comparison();
    bool Compare(const CString& left, Operator op, const CString& right);
    bool CompareErrorLevel(Operator op, std::u16string_view number);

    CString& text;
    const ConditionRules& rules;
    ConditionWorld& world;
    int depth;
    std::size_t expandedTo = 0; // units at the front of the text that are expanded
    bool failed = false;
};

bool Parser::Fail()
{
    failed = true;
    return false;
}

// The next word, expanded but not taken; empty at the end. What was read before has been cut off, so it
// stands at the front of the text.
std::u16string_view Parser::Peek()
{
    while (!failed) {
        Cut(PassSpaces(text, 0));
        const bool plain = !rules.expand || expandedTo > 0;
        const std::u16string_view known = rules.expand ? text.view().substr(0, expandedTo) : text.view();
        if (text.empty() || plain)
            return known.substr(0, EndOfPlainWord(known, rules.syntax));
        const std::size_t end = EndOfRawWord(text, 0, rules.syntax);
        CString word(text.view().substr(0, end));
        if (!world.Expand(word))
            break;
        // A reference to nothing leaves no word behind, and a value may hold several.
        text.Replace(0, end, word);
        expandedTo = word.size();
    }
    failed = true;
    return {};
}

void Parser::Cut(std::size_t count)
{
    text.Erase(0, count);
    expandedTo -= std::min(count, expandedTo);
}

CString Parser::Take()
{
    const CString word(Peek());
    Cut(word.size());
    if (word.empty())
        Fail();
    return word;
}

// A word as the value that it stands for.
CString Parser::Operand(CString word) const
{
    if (word.size() >= 2 && word.front() == u'`' && word.back() == u'`')
        return word.Substr(1, word.size() - 2);
    UnEscapeLine(word, rules.syntax);
    return word;
}

CString Parser::TakeOperand() { return Operand(Take()); }

// Looked at unexpanded, for behind the condition stands the command.
Parser::Joiner Parser::NextJoiner()
{
    const std::size_t start = PassSpaces(text, 0);
    const std::size_t end = EndOfRawWord(text, start, rules.syntax);
    const std::u16string_view word = text.view().substr(start, end - start);
    Joiner joiner = Joiner::None;
    if (EqualNoCase(word, u".and."))
        joiner = Joiner::And;
    else if (EqualNoCase(word, u".or."))
        joiner = Joiner::Or;
    else if (EqualNoCase(word, u".xor."))
        joiner = Joiner::Xor;
    if (joiner != Joiner::None)
        Cut(end);
    return joiner;
}

bool Parser::TakeNot()
{
    Cut(PassSpaces(text, 0));
    // A group is looked at as a whole before its first word is expanded.
    if (expandedTo == 0 && text.front() == u'(')
        return false;
    const std::u16string_view word = Peek();
    if (EqualNoCase(word, u"not") || word == u"!")
        Cut(word.size());
    else if (word.size() > 1 && word[0] == u'!' && FindTest(word.substr(1)))
        Cut(1);
    else
        return false;
    return true;
}

bool Parser::Clause()
{
    bool inverted = false;
    while (TakeNot())
        inverted = !inverted;
    std::optional<bool> value = Group();
    if (!value)
        value = SingleTest();
    if (!value)
        value = Comparison();
    return !failed && *value != inverted;
}

// Parentheses group only where they hold a joined condition; others belong to an operand.
std::optional<bool> Parser::Group()
{
    if (expandedTo > 0 || text.front() != u'(')
        return std::nullopt;
    const std::size_t closing = FindClosing(text, 0, quotes::both, rules.syntax);
    if (closing == npos)
        return std::nullopt;
    CString inside(text.view().substr(1, closing - 1));
    const bool joined = FindNoCase(inside, u" .or. ") != npos || FindNoCase(inside, u" .and. ") != npos ||
                        FindNoCase(inside, u" .xor. ") != npos;
    if (!joined)
        return std::nullopt;
    if (depth == deepestGroup)
        return Fail();
    ConditionRules innerRules = rules;
    innerRules.needsCommand = innerRules.bareNumber = false;
    const int answer = Parser(inside, innerRules, world, depth + 1).Run();
    Cut(closing + 1);
    if (answer == condition::syntaxError || !inside.empty())
        return Fail();
    return answer == condition::holds;
}

std::optional<bool> Parser::SingleTest()
{
    const CString keyword(Peek());
    const NamedTest* row = FindTest(keyword);
    if (!row)
        return std::nullopt;
    // A keyword may also be a value that is compared.
    const std::size_t next = PassSpaces(text, keyword.size());
    if (StartsWithSymbol(text.view().substr(next)))
        return std::nullopt;
    Cut(keyword.size());
    const CString argument = WithoutQuotes(TakeOperand());
    return !failed && world.Test(row->test, argument);
}

// The operator at the front; one that is written without a blank before its right operand is parted from it.
Operator Parser::TakeOperator()
{
    const std::u16string_view word = Peek();
    Operator op = OperatorOf(word, rules.exactEqual);
    std::size_t length = word.size();
    if (op == Operator::None && StartsWithSymbol(word)) {
        length = 2;
        op = OperatorOf(word.substr(0, 2), rules.exactEqual);
    }
    if (op != Operator::None)
        Cut(length);
    return op;
}

// "a"="b" without blanks.
Operator Parser::SplitAtEqualSign(CString& left, CString& right) const
{
    const std::size_t at = scan(left, u"=", quotes::both, rules.syntax);
    if (at == npos || at == 0)
        return Operator::None;
    right = left.Substr(at + 1);
    left.Truncate(at);
    return OperatorOf(u"=", rules.exactEqual);
}

bool Parser::Comparison()
{
    CString left = Take();
    if (failed)
        return false;
    CString right;
    Operator op = Operator::None;
    const std::size_t symbol = FindSymbol(left, rules.syntax);
    if (symbol != npos) {
        op = OperatorOf(left.view().substr(symbol, 2), rules.exactEqual);
        right = left.Substr(symbol + 2);
        left.Truncate(symbol);
    } else {
        op = TakeOperator();
    }
    const bool errorLevel = EqualNoCase(left, u"errorlevel");
    if (op == Operator::None && errorLevel)
        return CompareErrorLevel(Operator::GreaterEqual, Take());
    if (op == Operator::None && rules.bareNumber && IsNumericText(left, rules.decimalChar))
        return left.view().find_first_of(u"123456789abcdefABCDEF") != npos;
    if (op == Operator::None)
        op = SplitAtEqualSign(left, right);
    if (op == Operator::None) {
        // The left operand was a reference to nothing.
        op = OperatorOf(left, rules.exactEqual);
        left.Clear();
    }
    if (op == Operator::None)
        return Fail();
    right = right.empty() ? TakeOperand() : Operand(right);
    if (failed)
        return false;
    return errorLevel ? CompareErrorLevel(op, right) : Compare(Operand(left), op, right);
}

bool Parser::CompareErrorLevel(Operator op, std::u16string_view number)
{
    const std::optional<std::int64_t> wanted = ParseInteger(number);
    if (!wanted)
        return Fail();
    return Holds(op, SignOf(world.ErrorLevel() - *wanted));
}

bool Parser::Compare(const CString& left, Operator op, const CString& right)
{
    if (op == Operator::Identical)
        return left == right;
    if (op == Operator::Match || op == Operator::NoMatch) {
        CString pattern = WithoutOuterQuotes(right);
        if (pattern.view().starts_with(u"::"))
            pattern.Erase(0, 2);
        const std::optional<bool> matches = world.Matches(WithoutOuterQuotes(left), pattern);
        return matches ? *matches == (op == Operator::Match) : Fail();
    }
    const char16_t decimal = rules.decimalChar;
    if (!IsNumericText(left, decimal) || !IsNumericText(right, decimal))
        return Holds(op, CompareNoCase(left, right));
    const std::optional<std::int64_t> first = SmallNumber(left, decimal);
    const std::optional<std::int64_t> second = SmallNumber(right, decimal);
    const int sign = first && second ? SignOf(*first - *second) : world.CompareNumbers(left, right);
    return Holds(op, sign);
}

} // namespace

int ParseCondition(CString& text, const ConditionRules& rules, ConditionWorld& world)
{
    return Parser(text, rules, world, 0).Run();
}

std::size_t EndOfRawWord(std::u16string_view text, std::size_t from, const Syntax& syntax)
{
    std::size_t at = from;
    while (at < text.size() && !IsSpace(text[at])) {
        if (syntax.escapes && text[at] == syntax.escapeChar)
            at += 2;
        else if (text[at] == u'"' || text[at] == u'`')
            at = PassQuoted(text, at);
        else if (text[at] == u'%')
            at = PassReference(text, at, syntax);
        else
            ++at;
    }
    return std::min(at, text.size());
}
