// Numbers: the evaluator for @EVAL and its like, bases, formats. Each number may be an expression.
#include "functions/families.h"

#include <string>
#include <vector>

#include "engine/condition_entry.h"
#include "engine/country.h"
#include "engine/expansion_entry.h"
#include "engine/random.h"
#include "expand/decimal.h"
#include "expand/expansion.h"
#include "functions/arguments.h"
#include "lang/errors.h"
#include "text/compare.h"
#include "text/encoding.h"
#include "text/format.h"
#include "text/numbers.h"

namespace {

using View = std::u16string_view;

// Calculates the expression for an answer; its errors are reported already.
int AnswerExpression(FunctionCall& call, const CString& expression)
{
    CString text(expression);
    const int code = EvaluateExpression(text);
    if (code == 0)
        call.value = text;
    return -code;
}

int AnswerFlag(FunctionCall& call, bool flag)
{
    call.value = flag ? u"1" : u"0";
    return 0;
}

// "(first)sign(second)", the second being the function's own second argument or `otherwise`.
int AnswerStep(FunctionCall& call, View sign, View otherwise)
{
    const std::vector<View> pieces = SplitFunctionArguments(call.arguments, call.syntax);
    return AnswerExpression(
        call, Format(u"(%s)%s(%s)", pieces[0], sign, pieces.size() > 1 ? pieces[1] : otherwise));
}

// The greatest or the least of the numbers between the commas, as it was written.
int AnswerExtreme(FunctionCall& call, bool greatest)
{
    View best;
    for (const View piece : SplitFunctionArguments(call.arguments, call.syntax)) {
        CString difference = best.empty() ? Format(u"(%s)-0", piece) : Format(u"(%s)-(%s)", piece, best);
        if (const int code = EvaluateExpression(difference))
            return -code;
        const bool less = difference.front() == u'-';
        if (best.empty() || (difference != u"0" && less != greatest))
            best = piece;
    }
    call.value = best;
    call.value.Trim();
    return 0;
}

constexpr View baseDigits = u"0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";

} // namespace

// @eval[expression[=format]]
int Eval_Function(FunctionCall& call) { return AnswerExpression(call, CString(call.arguments)); }

// @inc[n[,step]], @dec[n[,step]]
int Inc_Function(FunctionCall& call) { return AnswerStep(call, u"+", u"1"); }
int Dec_Function(FunctionCall& call) { return AnswerStep(call, u"-", u"1"); }

int Abs_Function(FunctionCall& call) { return AnswerExpression(call, Format(u"abs(%s)", call.arguments)); }
int Ceiling_Function(FunctionCall& call)
{
    return AnswerExpression(call, Format(u"ceil(%s)", call.arguments));
}
int Floor_Function(FunctionCall& call)
{
    return AnswerExpression(call, Format(u"floor(%s)", call.arguments));
}
// @int[n]: the whole part, towards zero.
int Int_Function(FunctionCall& call) { return AnswerExpression(call, Format(u"(%s)\\1", call.arguments)); }

// @decimal[n]: the digits behind the decimal character; 0 when there are none.
int Decimal_Function(FunctionCall& call)
{
    if (const int code = AnswerExpression(call, CString(call.arguments)))
        return code;
    const std::size_t point = call.value.Find(Country().decimal);
    call.value = point == CString::npos ? CString(u"0") : call.value.Substr(point + 1);
    return 0;
}

// @max[n,n,...], @min[n,n,...], @average[n,n,...]
int Max_Function(FunctionCall& call) { return AnswerExtreme(call, true); }
int Min_Function(FunctionCall& call) { return AnswerExtreme(call, false); }

int Average_Function(FunctionCall& call)
{
    CString sum;
    const std::vector<View> pieces = SplitFunctionArguments(call.arguments, call.syntax);
    for (const View piece : pieces)
        FormatInto(sum, sum.empty() ? View(u"(%s)") : View(u"+(%s)"), {piece});
    return AnswerExpression(call, Format(u"(%s)/%u", sum, pieces.size()));
}

// @numeric[text]: 1 when the text is a number. @isfloat[text]: 1 when it has a decimal part, too.
int Numeric_Function(FunctionCall& call) { return AnswerFlag(call, QueryIsNumeric(call.arguments)); }

int Isfloat_Function(FunctionCall& call)
{
    const char16_t points[] = {u'.', Country().decimal, u'\0'};
    return AnswerFlag(call,
                      QueryIsNumeric(call.arguments) && call.arguments.find_first_of(points) != View::npos);
}

// @comma[n]: with separators of thousands.
int Comma_Function(FunctionCall& call)
{
    call.value = call.arguments;
    AddCommas(call.value.Trim());
    return 0;
}

// @convert[number,from,to]: a whole number of base `from` in base `to`, 2 to 36.
int Convert_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"tnn");
    const std::int64_t from = arguments.Number(1);
    const std::int64_t to = arguments.Number(2);
    if (arguments.Error() != 0)
        return arguments.Error();
    CString number(arguments.Text(0));
    number.Trim();
    const bool negative = number.front() == u'-';
    const View digits = number.view().substr(negative ? 1 : 0);
    CString upper(digits);
    MakeUpper(upper);
    const bool valid = from >= 2 && from <= 36 && to >= 2 && to <= 36 && !digits.empty();
    if (!valid ||
        upper.view().find_first_not_of(baseDigits.substr(0, static_cast<std::size_t>(from))) != View::npos)
        return static_cast<int>(errors::invalidNumber);
    try {
        const Decimal value = Decimal::FromBase(ToUtf8(upper), static_cast<int>(from));
        call.value = FromAscii(value.WholeText(static_cast<int>(to)));
    } catch (const DecimalError& problem) {
        return static_cast<int>(problem.code);
    }
    if (negative && call.value != u"0")
        call.value.Insert(0, u"-");
    return 0;
}

namespace {

int AnswerFormatted(FunctionCall& call, bool commas)
{
    const FunctionArguments arguments(call, u"st");
    if (arguments.Error() != 0)
        return arguments.Error();
    const View spec = arguments.Text(1);
    std::size_t used = 0;
    const std::int64_t width = ReadDecimal(spec, &used).value_or(0);
    std::int64_t places = 0;
    std::size_t placesUsed = 0;
    if (used < spec.size() && spec[used] == u'.')
        places = ReadDecimal(spec.substr(used + 1), &placesUsed).value_or(-1);
    if (places < 0 || places > 1000 || width > 10000 || width < -10000)
        return static_cast<int>(errors::invalidNumber);
    CString text = Format(u"%s=%d.%d", arguments.Text(0), places, places);
    if (const int code = EvaluateExpression(text))
        return -code;
    if (commas)
        AddCommas(text);
    call.value = Format(u"%*s", width, text);
    return 0;
}

} // namespace

// @formatn[n,width.places]: rounded and filled with blanks on the left, or on the right when the width is
// negative. @formatnc does the same with separators of thousands.

int Formatn_Function(FunctionCall& call) { return AnswerFormatted(call, false); }
int Formatnc_Function(FunctionCall& call) { return AnswerFormatted(call, true); }

// @random[low,high]: a whole number from `low` to `high`.
int Random_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"nn");
    if (arguments.Error() != 0)
        return arguments.Error();
    if (arguments.Number(1) < arguments.Number(0))
        return static_cast<int>(errors::invalidNumber);
    call.value = Format(u"%d", RandomBetween(arguments.Number(0), arguments.Number(1)));
    return 0;
}

// @if[condition,true[,false]]: one of the two texts.
int If_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"st|t");
    if (arguments.Error() != 0)
        return arguments.Error();
    CString condition(arguments.Text(0));
    const int answer = TestCondition(condition, ConditionMode::Whole);
    if (answer < 0)
        return static_cast<int>(errors::syntax);
    call.value = arguments.Text(answer == 1 ? 1 : 2);
    return 0;
}
