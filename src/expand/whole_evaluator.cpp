// SET /A: whole numbers, the operators and the precedence of C, names of variables, assignments.
#include <algorithm>
#include <optional>

#include "expand/evaluator.h"
#include "expand/expression_reader.h"
#include "expand/number_format.h"
#include "lang/errors.h"
#include "text/compare.h"
#include "text/encoding.h"
#include "text/words.h"

namespace {

using View = std::u16string_view;

constexpr int deepestNesting = 200;

struct ReportedError {
    int code;
};

[[noreturn]] void Fail(unsigned code) { throw DecimalError{code}; }

// What may stand in the name of a variable: anything that is no operator.
bool MayBeName(char16_t unit)
{
    return unit > u' ' && View(u"()!~-*/\\%+<>&^|=,;?:\"'").find(unit) == View::npos;
}

// Decimal, 0x hexadecimal or, with a leading zero, octal; as much of the text as is a number, else 0.
Decimal ReadVariable(View text)
{
    while (!text.empty() && IsBlank(text[0]))
        text.remove_prefix(1);
    const bool negative = !text.empty() && text[0] == u'-';
    if (!text.empty() && (text[0] == u'-' || text[0] == u'+'))
        text.remove_prefix(1);
    int base = 10;
    if (BeginsNoCase(text, u"0x")) {
        base = 16;
        text.remove_prefix(2);
    } else if (text.size() > 1 && text[0] == u'0') {
        base = 8;
    }
    const View known = base == 16 ? u"0123456789ABCDEFabcdef" : base == 8 ? u"01234567" : u"0123456789";
    const std::string digits = ToUtf8(text.substr(0, text.find_first_not_of(known)));
    const Decimal value = digits.empty() ? Decimal() : Decimal::FromBase(digits, base);
    return negative ? -value : value;
}

class WholeEvaluator {
public:
    WholeEvaluator(View expression, EvaluatorNames& known) : reader(expression), names(known) {}

    Decimal Run()
    {
        Decimal value = Assignment();
        while (reader.Take(u","))
            value = Assignment();
        if (!reader.AtEnd())
            Fail(errors::syntax);
        return value;
    }

private:
    Decimal Assignment();
    Decimal Level(int level);
    Decimal Unary();
    Decimal Primary();
    Decimal Variable(View name);
    View TakeName();
    bool TakeOperator(int level, View& sign);
    static Decimal Calculate(View sign, const Decimal& a, const Decimal& b);

    ExpressionReader reader;
    EvaluatorNames& names;
    int depth = 0;
};

// The binary operators from the loosest to the tightest; of two that begin alike the longer one first.
constexpr View levels[][4] = {
    {u"|"}, {u"^"}, {u"&"}, {u"<<", u">>"}, {u"+", u"-"}, {u"*", u"/", u"\\", u"%"}, {u"**"},
};
constexpr int levelCount = 7;

View WholeEvaluator::TakeName()
{
    reader.Peek();
    const View rest = reader.Rest();
    std::size_t length = 0;
    while (length < rest.size() && MayBeName(rest[length]))
        ++length;
    if (length == 0 || IsDigit(rest[0]))
        return {};
    reader.Skip(length);
    return rest.substr(0, length);
}

// "name = value", "name += value" ...; from right to left.
Decimal WholeEvaluator::Assignment()
{
    if (++depth > deepestNesting)
        Fail(errors::nestedTooDeep);
    const ExpressionReader start = reader;
    const View name = TakeName();
    if (!name.empty()) {
        constexpr View signs[] = {u"=",  u"+=", u"-=", u"*=",  u"/=", u"%=",
                                  u"&=", u"^=", u"|=", u"<<=", u">>="};
        for (const View sign : signs) {
            if (!reader.Take(sign))
                continue;
            const View calculation = sign.substr(0, sign.size() - 1);
            Decimal value = Assignment();
            if (!calculation.empty())
                value = Calculate(calculation, Variable(name), value);
            const CString text = FromAscii(value.Fixed(0));
            if (const int code = names.SetVariable(name, text))
                throw ReportedError{code};
            --depth;
            return value;
        }
    }
    reader = start;
    const Decimal value = Level(0);
    --depth;
    return value;
}

bool WholeEvaluator::TakeOperator(int level, View& sign)
{
    for (const View candidate : levels[level]) {
        if (candidate.empty() || reader.Peek() != candidate[0] || !reader.Rest().starts_with(candidate))
            continue;
        // "*" of "**" and anything that goes on with "=" is another operator.
        const View behind = reader.Rest().substr(candidate.size());
        if ((candidate == u"*" && behind.starts_with(u'*')) || behind.starts_with(u'='))
            continue;
        reader.Skip(candidate.size());
        sign = candidate;
        return true;
    }
    return false;
}

Decimal WholeEvaluator::Level(int level)
{
    if (level == levelCount)
        return Unary();
    Decimal left = Level(level + 1);
    for (View sign; TakeOperator(level, sign);)
        left = Calculate(sign, left, Level(level + 1));
    return left;
}

Decimal WholeEvaluator::Calculate(View sign, const Decimal& a, const Decimal& b)
{
    constexpr std::int64_t longestShift = 100000000;
    switch (sign[0]) {
    case u'+': return a + b;
    case u'-': return a - b;
    case u'|': return Decimal(a.ToInt64() | b.ToInt64());
    case u'^': return Decimal(a.ToInt64() ^ b.ToInt64());
    case u'&': return Decimal(a.ToInt64() & b.ToInt64());
    case u'*':
        if (sign.size() == 1)
            return a * b;
        if (b.Sign() < 0 || b.ToInt64() > static_cast<std::int64_t>(Decimal::mostDigits * 4))
            Fail(errors::numberTooLarge);
        return a.PowerOfWhole(static_cast<unsigned long>(b.ToInt64()));
    case u'<':
    case u'>': {
        if (b.Sign() < 0)
            Fail(errors::syntax);
        const unsigned long count = static_cast<unsigned long>(std::min(b.ToInt64(), longestShift));
        if (sign[0] == u'<')
            return a.TimesPowerOfTwo(count);
        // Towards minus infinity, as the bits of a processor move.
        const Decimal down = a.Sign() < 0 ? -((-a - Decimal(1)).DividedByPowerOfTwo(count)) - Decimal(1)
                                          : a.DividedByPowerOfTwo(count);
        return down;
    }
    default: break;
    }
    if (b.Sign() == 0)
        Fail(errors::divisionByZero);
    return sign[0] == u'%' ? Decimal::Remainder(a, b) : Decimal::Quotient(a, b);
}

Decimal WholeEvaluator::Unary()
{
    if (++depth > deepestNesting * 5)
        Fail(errors::nestedTooDeep);
    Decimal value;
    if (reader.Take(u"-"))
        value = -Unary();
    else if (reader.Take(u"+"))
        value = Unary();
    else if (reader.Take(u"~"))
        value = -Unary() - Decimal(1);
    else if (reader.Take(u"!"))
        value = Decimal(Unary().Sign() == 0 ? 1 : 0);
    else
        value = Primary();
    --depth;
    return value;
}

Decimal WholeEvaluator::Primary()
{
    if (reader.Take(u"(")) {
        Decimal value = Assignment();
        while (reader.Take(u","))
            value = Assignment();
        if (!reader.Take(u")"))
            Fail(reader.AtEnd() ? errors::missingParenthesis : errors::syntax);
        return value;
    }
    if (IsDigit(reader.Peek())) {
        const View rest = reader.Rest();
        std::size_t length = 0;
        while (length < rest.size() && IsLetterOrDigit(rest[length]))
            ++length;
        const View number = rest.substr(0, length);
        const bool hexadecimal = BeginsNoCase(number, u"0x");
        const bool octal = !hexadecimal && number.size() > 1 && number[0] == u'0';
        const View known = hexadecimal ? u"0123456789ABCDEFabcdef" : octal ? u"01234567" : u"0123456789";
        if (number.size() == 2 && hexadecimal)
            Fail(errors::invalidNumber);
        if (number.find_first_not_of(known, hexadecimal ? 2 : 0) != View::npos)
            Fail(errors::invalidNumber);
        reader.Skip(length);
        return ReadVariable(number);
    }
    const View name = TakeName();
    if (name.empty())
        Fail(errors::syntax);
    return Variable(name);
}

Decimal WholeEvaluator::Variable(View name)
{
    CString text;
    return names.Variable(name, text) ? ReadVariable(text) : Decimal();
}

} // namespace

EvaluatorResult EvaluateWhole(CString& text, EvaluatorNames& names)
{
    try {
        const CString bare = WithoutQuotes(text);
        text = FromAscii(WholeEvaluator(bare, names).Run().Fixed(0));
        return {};
    } catch (const DecimalError& problem) {
        return {static_cast<int>(problem.code), false};
    } catch (const ReportedError& problem) {
        return {problem.code, true};
    }
}
