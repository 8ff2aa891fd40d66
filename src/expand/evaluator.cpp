#include "expand/evaluator.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <numeric>
#include <optional>
#include <string>

#include "expand/decimal_functions.h"
#include "expand/expression_reader.h"
#include "expand/number_format.h"
#include "lang/errors.h"
#include "text/compare.h"
#include "text/words.h"

namespace {

using View = std::u16string_view;

// Places that quotients and functions carry beyond those asked for, in the first calculation. Later steps of
// the expression may magnify what rounding took away, so it is repeated with more until nothing changes.
constexpr std::size_t firstGuard = 30;
constexpr std::size_t mostGuard = 2000;
constexpr std::size_t mostPlaces = 100000; // that are calculated, whatever is asked for
constexpr int deepestNesting = 200;        // brackets in brackets

// A number, and how many of its places rounding on the way has left right at least.
struct Value {
    static constexpr std::int64_t all = std::numeric_limits<std::int64_t>::max();

    Decimal number;
    std::int64_t good = all;

    bool Exact() const { return good == all; }
};

// The places of a * b that are right: the error of each is as many times larger as the other is large.
std::int64_t GoodPlacesOfProduct(const Value& a, const Value& b)
{
    const auto spoilt = [](const Value& rounded, const Value& by) {
        return rounded.Exact() ? Value::all
                               : rounded.good - static_cast<std::int64_t>(by.number.WholeDigits()) - 1;
    };
    return std::min(spoilt(a, b), spoilt(b, a));
}

struct ReportedError {
    int code;
};

// log(x) and its like; the others stand in ApplyFunction.
struct FunctionName {
    View name;
    DecimalFunction function;
};

constexpr FunctionName endlessFunctions[] = {
    {u"log", DecimalFunction::Log},   {u"log2", DecimalFunction::Log2}, {u"log10", DecimalFunction::Log10},
    {u"exp", DecimalFunction::Exp},   {u"sin", DecimalFunction::Sin},   {u"asin", DecimalFunction::Asin},
    {u"sinh", DecimalFunction::Sinh}, {u"cos", DecimalFunction::Cos},   {u"acos", DecimalFunction::Acos},
    {u"cosh", DecimalFunction::Cosh}, {u"tan", DecimalFunction::Tan},   {u"atan", DecimalFunction::Atan},
    {u"tanh", DecimalFunction::Tanh},
};

[[noreturn]] void Fail(unsigned code) { throw DecimalError{code}; }

class Evaluator {
public:
    Evaluator(View expression, std::size_t wantedPlaces, std::size_t guardPlaces, char16_t point,
              EvaluatorNames& known)
        : reader(expression), places(wantedPlaces + guardPlaces), guard(guardPlaces), decimalChar(point),
          names(known)
    {}

    Value Run()
    {
        Value value = Comparison();
        if (!reader.AtEnd())
            Fail(errors::syntax);
        value.good = uncertain ? 0 : value.good;
        value.number = Settled(value);
        return value;
    }

private:
    Value Comparison();
    Value Sum();
    Value Product();
    Value PowerLevel();
    Value Unary();
    Value Primary();
    Value Group();
    Value Name();
    Value PairFunction(View name);
    Value ArrayElement(View name);
    std::optional<Value> ApplyFunction(View name, const Value& argument);

    Value Divide(const Value& a, const Value& b);
    Value RaisePower(const Value& a, const Value& b);
    Value Shift(const Value& a, const Value& b, bool left);
    // Whole numbers are taken from values that rounding may have pushed just below or above them. Whether
    // that went well only a calculation with more places can tell.
    Decimal Settled(const Value& value)
    {
        if (value.Exact())
            return value.number;
        uncertain = true;
        return value.number.Rounded(places - guard / 2);
    }
    // The good places of what was just rounded to all places; errors of its arguments are not followed.
    std::int64_t RoundedOnce(bool exactArguments) const
    {
        return exactArguments ? static_cast<std::int64_t>(places) - 1 : 0;
    }
    std::int64_t Int64(const Value& value) { return Settled(value).ToInt64(); }

    ExpressionReader reader;
    std::size_t places; // that are calculated
    std::size_t guard;  // how many of them nobody asked for
    char16_t decimalChar;
    EvaluatorNames& names;
    int depth = 0;
    bool uncertain = false;
};

Value FromInt64(std::int64_t number) { return {Decimal(number)}; }

// Bits, comparisons and shifts share one level, from left to right.
Value Evaluator::Comparison()
{
    Value left = Sum();
    for (;;) {
        if (reader.Take(u"<<")) {
            left = Shift(left, Sum(), true);
        } else if (reader.Take(u">>")) {
            left = Shift(left, Sum(), false);
        } else if (reader.Take(u"<=")) {
            left = FromInt64(Int64(left) <= Int64(Sum()));
        } else if (reader.Take(u">=")) {
            left = FromInt64(Int64(left) >= Int64(Sum()));
        } else if (reader.Take(u"!=")) {
            left = FromInt64(Int64(left) != Int64(Sum()));
        } else if (reader.Take(u"<")) {
            left = FromInt64(Int64(left) < Int64(Sum()));
        } else if (reader.Take(u">")) {
            left = FromInt64(Int64(left) > Int64(Sum()));
        } else if (reader.Take(u"&")) {
            left = FromInt64(Int64(left) & Int64(Sum()));
        } else if (reader.Take(u"|")) {
            left = FromInt64(Int64(left) | Int64(Sum()));
        } else if (reader.Take(u"^")) {
            left = FromInt64(Int64(left) ^ Int64(Sum()));
        } else {
            return left;
        }
    }
}

Value Evaluator::Sum()
{
    Value left = Product();
    for (;;) {
        const bool plus = reader.Take(u"+");
        if (!plus && !reader.Take(u"-"))
            return left;
        const Value right = Product();
        left.number = plus ? left.number + right.number : left.number - right.number;
        left.good = left.Exact() && right.Exact() ? Value::all : std::min(left.good, right.good) - 1;
    }
}

Value Evaluator::Product()
{
    Value left = PowerLevel();
    for (;;) {
        const char16_t sign = reader.Peek();
        if (sign != u'*' && sign != u'/' && sign != u'\\' && sign != u'%')
            return left;
        reader.Skip(1);
        const Value right = PowerLevel();
        if (sign == u'*') {
            left = {left.number * right.number, GoodPlacesOfProduct(left, right)};
            // What was rounded already needs no more places than it had.
            if (!left.Exact())
                left.number = left.number.Rounded(places + guard);
        } else if (sign == u'/') {
            left = Divide(left, right);
        } else if (right.number.Sign() == 0) {
            Fail(errors::divisionByZero);
        } else {
            const bool exact = left.Exact() && right.Exact();
            const Decimal quotient = exact ? Decimal::Quotient(left.number, right.number)
                                           : Settled(Divide(left, right)).Truncated();
            if (sign == u'\\')
                left = {quotient};
            else if (exact)
                left = {Decimal::Remainder(left.number, right.number)};
            else
                left = {left.number - quotient * right.number, 0};
        }
    }
}

Value Evaluator::Divide(const Value& a, const Value& b)
{
    if (b.number.Sign() == 0)
        Fail(errors::divisionByZero);
    bool exact = false;
    Value result;
    result.number = Decimal::Divide(a.number, b.number, places, exact);
    if (!a.Exact() || !b.Exact())
        result.good = 0;
    else if (!exact)
        result.good = static_cast<std::int64_t>(places);
    return result;
}

Value Evaluator::PowerLevel()
{
    Value left = Unary();
    while (reader.Take(u"**"))
        left = RaisePower(left, Unary());
    return left;
}

Value Evaluator::RaisePower(const Value& a, const Value& b)
{
    constexpr std::int64_t mostExactPlaces = 20000;
    const Decimal exponent = Settled(b);
    const bool whole = exponent.IsWhole();
    if (exponent.Sign() == 0)
        return FromInt64(1);
    if (a.number.Sign() == 0) {
        if (exponent.Sign() < 0)
            Fail(errors::divisionByZero);
        return FromInt64(0);
    }
    if (a.number.Sign() < 0 && !whole)
        Fail(errors::invalidNumber);
    const std::int64_t count = exponent.Abs().ToInt64();
    const bool fewPlaces =
        a.number.Places() == 0 || count <= mostExactPlaces / static_cast<std::int64_t>(a.number.Places());
    const bool one = Decimal::Compare(a.number.Abs(), Decimal(1)) == 0;
    if (whole && a.Exact() && fewPlaces && (exponent.Sign() > 0 || count <= mostExactPlaces || one)) {
        if (count > static_cast<std::int64_t>(Decimal::mostDigits * 4) && !one)
            Fail(errors::numberTooLarge);
        const unsigned long turns = static_cast<unsigned long>(one ? count % 2 + 2 : count);
        const Value power{a.number.PowerOfWhole(turns)};
        return exponent.Sign() > 0 ? power : Divide(FromInt64(1), power);
    }
    return {Power(a.number, exponent, places), RoundedOnce(a.Exact() && b.Exact())};
}

Value Evaluator::Shift(const Value& a, const Value& b, bool left)
{
    constexpr std::int64_t longest = 100000000;
    const Decimal number = Settled(a);
    if (!number.IsWhole() || b.number.Sign() < 0)
        Fail(errors::syntax);
    const unsigned long count = static_cast<unsigned long>(std::min(Int64(b), longest));
    return {left ? number.TimesPowerOfTwo(count) : number.DividedByPowerOfTwo(count)};
}

Value Evaluator::Unary()
{
    if (reader.Take(u"+"))
        return Primary();
    if (reader.Take(u"-")) {
        Value value = Primary();
        value.number = -value.number;
        return value;
    }
    if (reader.Take(u"~"))
        return FromInt64(~Int64(Primary()));
    return Primary();
}

Value Evaluator::Primary()
{
    const char16_t first = reader.Peek();
    if (first == u'(')
        return Group();
    // The whole expression that follows is what "!" turns over.
    if (first == u'!' && reader.PeekSecond() != u'=') {
        reader.Skip(1);
        if (++depth > deepestNesting)
            Fail(errors::nestedTooDeep);
        const Value value = Comparison();
        --depth;
        return FromInt64(Settled(value).Sign() == 0);
    }
    Value value;
    if (reader.TakePrefixed(value.number))
        return value;
    if (reader.AtNumber(decimalChar))
        return {reader.TakeDecimal(decimalChar)};
    return Name();
}

Value Evaluator::Group()
{
    if (++depth > deepestNesting)
        Fail(errors::nestedTooDeep);
    reader.Skip(1);
    const Value value = Comparison();
    if (!reader.Take(u")"))
        Fail(reader.AtEnd() ? errors::missingParenthesis : errors::syntax);
    --depth;
    return value;
}

Value Evaluator::Name()
{
    const View name = reader.TakeWord();
    if (name.empty())
        Fail(errors::syntax);
    const char16_t next = reader.Peek();
    if (next == u'[')
        return ArrayElement(name);
    if (next != u'(') {
        if (!EqualNoCase(name, u"pi"))
            Fail(errors::syntax);
        return {Pi(places), RoundedOnce(true)};
    }
    if (EqualNoCase(name, u"gcd") || EqualNoCase(name, u"lcm") || EqualNoCase(name, u"ror") ||
        EqualNoCase(name, u"rol"))
        return PairFunction(name);
    const std::optional<Value> value = ApplyFunction(name, Group());
    if (!value)
        Fail(errors::syntax);
    return *value;
}

std::optional<Value> Evaluator::ApplyFunction(View name, const Value& argument)
{
    const Decimal& number = argument.number;
    if (EqualNoCase(name, u"abs"))
        return Value{number.Abs(), argument.good};
    if (EqualNoCase(name, u"floor"))
        return Value{Settled(argument).Floor()};
    if (EqualNoCase(name, u"ceil"))
        return Value{-(-Settled(argument)).Floor()};
    if (EqualNoCase(name, u"recip"))
        return Divide(FromInt64(1), argument);
    if (EqualNoCase(name, u"fact")) {
        const Decimal whole = Settled(argument);
        if (!whole.IsWhole() || whole.Sign() < 0)
            Fail(errors::invalidNumber);
        return Value{Decimal::Factorial(
            static_cast<unsigned long>(std::min<std::int64_t>(whole.ToInt64(), 1u << 30)))};
    }
    for (const FunctionName& row : endlessFunctions) {
        if (EqualNoCase(name, row.name))
            return Value{Apply(row.function, number, places), RoundedOnce(argument.Exact())};
    }
    return std::nullopt;
}

// gcd, lcm, ror and rol take two whole numbers with a blank between them.
Value Evaluator::PairFunction(View name)
{
    ExpressionReader arguments(reader.TakeBrackets(u'(', u')'));
    std::int64_t pair[2];
    for (std::int64_t& number : pair) {
        const bool negative = arguments.Take(u"-");
        if (!negative)
            arguments.Take(u"+");
        if (!IsDigit(arguments.Peek()))
            Fail(errors::syntax);
        const Decimal digits = arguments.TakeDecimal(u'.');
        number = (negative ? -digits : digits).ToInt64();
    }
    if (!arguments.AtEnd())
        Fail(errors::syntax);
    const std::uint64_t bits = static_cast<std::uint64_t>(pair[0]);
    const int count = static_cast<int>(pair[1] & 63);
    if (EqualNoCase(name, u"ror"))
        return FromInt64(static_cast<std::int64_t>(std::rotr(bits, count)));
    if (EqualNoCase(name, u"rol"))
        return FromInt64(static_cast<std::int64_t>(std::rotl(bits, count)));
    const auto magnitude = [](std::int64_t n) {
        return n < 0 ? 0 - static_cast<std::uint64_t>(n) : static_cast<std::uint64_t>(n);
    };
    const std::uint64_t a = magnitude(pair[0]);
    const std::uint64_t b = magnitude(pair[1]);
    const std::uint64_t divisor = std::gcd(a, b);
    if (EqualNoCase(name, u"gcd"))
        return {Decimal::FromUnsigned(divisor)};
    if (divisor == 0)
        return FromInt64(0);
    return {Decimal::FromUnsigned(a / divisor) * Decimal::FromUnsigned(b)};
}

Value Evaluator::ArrayElement(View name)
{
    const View indexes = reader.TakeBrackets(u'[', u']');
    CString text;
    int code = 0;
    if (!names.ArrayElement(name, indexes, text, code))
        Fail(errors::syntax);
    if (code != 0)
        throw ReportedError{code};
    if (!IsNumericText(text, decimalChar))
        Fail(errors::syntax);
    return Evaluator(text, places - guard, guard, decimalChar, names).Run();
}

CString Calculate(View expression, const NumberFormat& format, char16_t decimalChar, EvaluatorNames& names)
{
    const std::size_t places = std::min(format.most, mostPlaces);
    CString last;
    for (std::size_t guard = firstGuard; guard <= mostGuard; guard = guard * 2 + 10) {
        const Value value = Evaluator(expression, places, guard, decimalChar, names).Run();
        const CString text = FormatNumber(value.number, format, decimalChar);
        if (value.good > static_cast<std::int64_t>(places + guard / 2) || text == last)
            return text;
        last = text;
    }
    return last;
}

} // namespace

EvaluatorResult EvaluateDecimal(CString& text, const EvaluatorSettings& settings, EvaluatorNames& names)
{
    try {
        const CString bare = text.front() == u'"' ? WithoutQuotes(text) : text;
        const std::size_t equals = FindFormat(bare);
        NumberFormat format{settings.least, settings.most};
        if (equals != CString::npos) {
            if (!ReadFormat(bare.view().substr(equals + 1), format)) {
                text.Clear();
                return {};
            }
        }
        text = Calculate(bare.view().substr(0, equals), format, settings.decimalChar, names);
        return {};
    } catch (const DecimalError& problem) {
        return {static_cast<int>(problem.code), false};
    } catch (const ReportedError& problem) {
        return {problem.code, true};
    }
}
