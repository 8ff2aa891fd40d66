#include <gtest/gtest.h>

#include <map>
#include <string>

#include "expand/evaluator.h"
#include "expand/expression_reader.h"
#include "text/compare.h"
#include "text/encoding.h"

namespace {

class FakeNames : public EvaluatorNames {
public:
    std::map<std::u16string, std::u16string> variables;

    bool ArrayElement(std::u16string_view name, std::u16string_view indexes, CString& value,
                      int& code) override
    {
        if (!EqualNoCase(name, u"arr"))
            return false;
        if (indexes == u"9")
            code = 83;
        value = indexes == u"1" ? u"-2.5" : u"word";
        return true;
    }
    bool Variable(std::u16string_view name, CString& value) override
    {
        const auto found = variables.find(std::u16string(name));
        if (found == variables.end())
            return false;
        value = found->second;
        return true;
    }
    int SetVariable(std::u16string_view name, std::u16string_view value) override
    {
        if (name == u"fixed")
            return 5;
        variables[std::u16string(name)] = value;
        return 0;
    }
};

struct Case {
    const char16_t* expression;
    const char* expected; // a result, or "!" and an error code in hexadecimal
};

std::string ErrorName(int code)
{
    char text[16];
    std::snprintf(text, sizeof text, "!%X", static_cast<unsigned>(code));
    return text;
}

std::string Calculate(std::u16string_view expression, const EvaluatorSettings& settings = {})
{
    FakeNames names;
    CString text(expression);
    const EvaluatorResult answer = EvaluateDecimal(text, settings, names);
    if (answer.code != 0) {
        EXPECT_EQ(text, expression) << "an error leaves the text alone";
    }
    return answer.code != 0 ? ErrorName(answer.code) : ToUtf8(text);
}

template <std::size_t n> void CheckAll(const Case (&cases)[n], const EvaluatorSettings& settings = {})
{
    for (const Case& test : cases)
        EXPECT_EQ(Calculate(test.expression, settings), test.expected) << ToUtf8(CString(test.expression));
}

// What golden scripts and the random expressions below show is left out.
TEST(Evaluator, Arithmetic)
{
    const Case cases[] = {
        {u" 1 +\t2 ", "3"},
        {u"\"1+2\"", "3"},
        {u"10/3", "3.3333333333"},
        {u"-2/3", "-0.6666666667"},
        {u"-7\\2", "-3"},
        {u"7%2", "1"},
        {u"-7%2", "-1"},
        {u"7.5%2", "1.5"},
        {u"5.5\\1.1", "5"},
        {u"2 ** 3 ** 2", "64"},
        {u"2**-2", "0.25"},
        {u"2**0.5", "1.4142135624"},
        {u"(-8)**3", "-512"},
        {u"-2**2", "4"},
        {u"0**0", "1"},
        {u"10**20", "100000000000000000000"},
        {u"0.1+0.2", "0.3"},
        {u"1-1", "0"},
        {u"-0", "0"},
        {u"1/3*3", "1"},
        // The dividend has more places than the quotient is to have.
        {u"1621274957863896243998265460357/2680*log10(8389)/-15.5",
         "-153139457874107546314547425.9501471712"},
        {u"1.25+", "!20000000"},
        {u"--1", "!20000000"},
        {u"2*-3", "-6"},
        {u"5--3", "8"},
        {u"5-+3", "2"},
        {u"2(3)", "!20000000"},
        {u"((((7))))", "7"},
        {u".5+.5", "1"},
        {u"5.+1", "6"},
        {u".", "!20000000"},
        {u"1.2.3", "!20000000"},
        {u"", "!20000000"},
        {u"()", "!20000000"},
        {u"(1", "!20000026"},
        {u"(1+2", "!20000026"},
        {u"1)", "!20000000"},
        {u"(1;2)", "!20000000"},
        {u"5/0", "!2000002A"},
        {u"5\\0", "!2000002A"},
        {u"5%0", "!2000002A"},
        {u"0**-1", "!2000002A"},
        {u"abc", "!20000000"},
        {u"1 2", "!20000000"},
        {u"1.5E3", "1500"},
        {u"1e-3", "0.001"},
        {u"1e", "!20000000"},
        {u"1e9999999", "!2000005B"},
    };
    CheckAll(cases);
}

TEST(Evaluator, BitsComparisonsAndShifts)
{
    const Case cases[] = {
        {u"1 + 2 < 4 & 1", "1"},
        {u"1.5 < 1.9", "0"},
        {u"1.9 > 1.1", "0"},
        {u"2 >= 2", "1"},
        {u"2 <= 1", "0"},
        {u"2 != 3", "1"},
        {u"3 & 5", "1"},
        {u"3 | 5", "7"},
        {u"3 ^ 5", "6"},
        {u"1 | 2 & 1", "1"}, // one level, left to right
        {u"~5", "-6"},
        {u"~5.9", "-6"},
        {u"1 << 70", "1180591620717411303424"},
        {u"5 >> 1", "2"},
        {u"-5 >> 1", "-2"},
        {u"5 << 0", "5"},
        {u"5 >> 1000000", "0"},
        {u"1.5 << 1", "!20000000"},
        {u"1 << -1", "!20000000"},
        {u"1 << 99999999", "!2000005B"},
        {u"0 << 99999999", "0"},
        {u"!0", "1"},
        {u"!5", "0"},
        {u"!0 + 5", "0"},
        {u"1 + !1", "1"},
        {u"(!0) + 5", "6"},
        {u"(1 + !1) * 4", "4"},
        {u"!0.5", "0"},
        {u"!(1-1)", "1"},
        {u"99999999999999999999 > 1", "1"},
        {u"1 == 1", "!20000000"},
        {u"1 < 2 < 3", "1"},
    };
    CheckAll(cases);
}

TEST(Evaluator, OtherBases)
{
    const Case cases[] = {
        {u"0xFF", "255"},
        {u"0Xff+1", "256"},
        {u"0b101", "5"},
        {u"0B11", "3"},
        {u"0o17", "15"},
        {u"0O7", "7"},
        {u"0x", "!20000000"},
        {u"0b2", "!20000000"},
        {u"0o8", "!20000000"},
        {u"10x5", "!20000000"},
        {u"010", "10"},
        {u"0xFFFFFFFFFFFFFFFF", "-1"},
        {u"0x10000000000000000", "!2000005B"},
    };
    CheckAll(cases);
}

TEST(Evaluator, Functions)
{
    const Case cases[] = {
        {u"pi", "3.1415926536"},
        {u"PI*2", "6.2831853072"},
        {u"pix", "!20000000"},
        {u"floor(log2(8))", "3"},
        {u"log(10)/log(2)", "3.3219280949"},
        {u"floor(log(8)/log(2))", "3"},
        {u"log(8)/log(2)\\1", "3"},
        {u"LOG(exp(1))", "1"},
        {u"exp(-1000000)", "0"},
        {u"sin(pi)", "0"},
        {u"cos(0)", "1"},
        {u"tan(pi/4)", "1"},
        {u"asin(0.5)*6", "3.1415926536"},
        {u"acos(-1)", "3.1415926536"},
        {u"atan(1)*4", "3.1415926536"},
        {u"sinh(1)", "1.1752011936"},
        {u"cosh(1)", "1.5430806348"},
        {u"tanh(1)", "0.761594156"},
        {u"fact(0)", "1"},
        {u"fact(2.5)", "!20000006"},
        {u"fact(-1)", "!20000006"},
        {u"floor(-1.5)", "-2"},
        {u"ceil(-1.5)", "-1"},
        {u"log(0)", "!20000006"},
        {u"log(-1)", "!20000006"},
        {u"acos(2)", "!20000006"},
        {u"(-8)**0.5", "!20000006"},
        {u"recip(0)", "!2000002A"},
        {u"sin 1", "!20000000"},
        {u"sin(1", "!20000026"},
        {u"nosuch(1)", "!20000000"},
        {u"gcd(-12 18)", "6"},
        {u"gcd(0 7)", "7"},
        {u"gcd(0 0)", "0"},
        {u"gcd(12)", "!20000000"},
        {u"gcd(1 2 3)", "!20000000"},
        {u"gcd(1 1000000000000000000)", "1"},
        {u"lcm(4 6)", "12"},
        {u"lcm(0 6)", "0"},
        {u"rol(1 63)", "-9223372036854775808"},
        {u"ror(1 1)", "-9223372036854775808"},
        {u"ror(2 65)", "1"},
        {u"gcd(12 18)+1", "7"},
        {u"arr[1]*2", "-5"},
        {u"arr[2]", "!20000000"},
        {u"arr[9]", "!53"},
        {u"nope[1]", "!20000000"},
    };
    CheckAll(cases);
}

TEST(Evaluator, Formats)
{
    const Case cases[] = {
        {u"10/3= 2.4", "3.3333"},
        {u"1=2.4", "1.00"},
        {u"1=2,4", "1.00"},
        {u"10/3=2", "3.33"},
        {u"1/8=0.2", "0.13"},
        {u"-1/8=0.2", "-0.13"},
        {u"-0.001=0.2", "0"},
        {u"-0.001=2.2", "0.00"},
        {u"0.999=0.2", "1"},
        {u"8=O", "10"},
        {u"-1=H", "FFFFFFFFFFFFFFFF"},
        {u"18446744073709551615=H", "FFFFFFFFFFFFFFFF"},
        {u"255.9=h", "FF"},
        {u"0=B", "0"},
        {u"12345=E0.3", "1.235E+4"},
        {u"12345=E", "1.2345000000E+4"},
        {u"0.00012=E0.2", "1.20E-4"},
        {u"99999=E0.1", "1.0E+5"},
        {u"0=E0.2", "0.00E+0"},
        {u"-5=E0.1", "-5.0E+0"},
        {u"5=+", "+5"},
        {u"-5=+", "-5"},
        {u"0=+", "+0"},
        {u"5=+2.2", "+5.00"},
        {u"5=2.2+", "+5.00"},
        {u"255=+H", "FF"},
        {u"5=E+0.1", "+5.0E+0"},
        {u"5=", ""},
        {u"5= ", ""},
        {u"5=Q", "!20000000"},
        {u"5=0.2x", "!20000000"},
        {u"5==5", "!20000000"},
        {u"1!=1", "0"},
        {u"1<=1=H", "1"},
        {u"2**200/7=0.40", "229562577751284325077423156048737514646028999111827547900196."
                           "5714285714285714285714285714285714285714"},
    };
    CheckAll(cases);
}

TEST(Evaluator, PlacesAndDecimalCharacter)
{
    EvaluatorSettings settings{2, 5, u','};
    EXPECT_EQ(Calculate(u"1/3", settings), "0,33333");
    EXPECT_EQ(Calculate(u"1,5*2", settings), "3,00");
    EXPECT_EQ(Calculate(u"1.5*2", settings), "3,00");
    settings = {0, 0, u'.'};
    EXPECT_EQ(Calculate(u"2.5", settings), "3");
    EXPECT_EQ(Calculate(u"-2.5", settings), "-3");
    EXPECT_EQ(Calculate(u"-0.4", settings), "0");
}

// Whatever would take for ever or fill the memory is refused at once.
TEST(Evaluator, HugeNumbersAreRefused)
{
    const char16_t* hopeless[] = {
        u"10**1000000000",        u"9**9**9**9**9**9**9**9",        u"fact(1000000)",   u"exp(100000000)",
        u"1.5**100000000",        u"1.000001**99999999999999",      u"cosh(10**9)",     u"1e999999*1e999999",
        u"2**3333333*2**3333333", u"0.5**99999999999999999999=0.2", u"sin(10**200000)",
    };
    for (const char16_t* expression : hopeless) {
        const std::string answer = Calculate(expression);
        EXPECT_TRUE(answer == "!2000005B" || answer == "0") << ToUtf8(CString(expression)) << ": " << answer;
    }
    std::u16string nested;
    for (int i = 0; i < 100000; ++i)
        nested += u'(';
    EXPECT_EQ(Calculate(nested), "!20000057");
    std::u16string negated;
    for (int i = 0; i < 100000; ++i)
        negated += u'!';
    EXPECT_EQ(Calculate(negated + u"1"), "!20000057");
    EXPECT_EQ(Calculate(u"1**99999999999"), "1");
    EXPECT_EQ(Calculate(u"(-1)**99999999999"), "-1");
    EXPECT_EQ(Calculate(u"10**-99999999999"), "0");
}

TEST(Evaluator, ManyDigits)
{
    const std::string big = Calculate(u"2**3000");
    EXPECT_EQ(big.size(), 904u);
    EXPECT_EQ(big.substr(0, 20), "12302319221611171769");
    // 1/7 to a thousand places.
    const std::string seventh = Calculate(u"1/7=0.1000");
    ASSERT_EQ(seventh.size(), 1002u);
    for (std::size_t i = 0; i < 990; ++i)
        EXPECT_EQ(seventh[i + 2], "142857"[i % 6]);
    // Digits 991 to 1000 of pi are known to everyone who counts.
    EXPECT_EQ(Calculate(u"pi=0.1000").substr(992), "2164201989");
}

// Random expressions, calculated by evaluator_table.py.
TEST(Evaluator, AgreesWithAnotherImplementation)
{
    const Case cases[] = {
#include "tests/unit/evaluator_table.inc"
    };
    CheckAll(cases);
}

struct WholeCase {
    const char16_t* expression;
    const char* expected;
};

TEST(WholeEvaluator, OperatorsAndPrecedence)
{
    const WholeCase cases[] = {
        {u"1+2*3", "7"},
        {u"7/2", "3"},
        {u"-7/2", "-3"},
        {u"7%3", "1"},
        {u"-7%3", "-1"},
        {u"1|2&3", "3"},
        {u"1^3", "2"},
        {u"6&3|8", "10"},
        {u"1<<4", "16"},
        {u"-5>>1", "-3"},
        {u"256>>4>>1", "8"},
        {u"1+1<<2", "8"},
        {u"~5", "-6"},
        {u"!0+5", "6"},
        {u"!5", "0"},
        {u"--5", "5"},
        {u"- -5", "5"},
        {u"-~5", "6"},
        {u"2**10", "1024"},
        {u"010", "8"},
        {u"0x1F", "31"},
        {u"08", "!20000006"},
        {u"0x", "!20000006"},
        {u"12abc", "!20000006"},
        {u"(1+2)*3", "9"},
        {u"(1", "!20000026"},
        {u"1)", "!20000000"},
        {u"", "!20000000"},
        {u"1+", "!20000000"},
        {u"5/0", "!2000002A"},
        {u"5%0", "!2000002A"},
        {u"1 2", "!20000000"},
        {u"1.5", "!20000000"},
        {u"\"1+2\"", "3"},
        {u"1<<-1", "!20000000"},
        {u"99999999999*99999999999", "9999999999800000000001"},
        {u"2**99999999", "!2000005B"},
    };
    for (const WholeCase& test : cases) {
        FakeNames names;
        CString text(test.expression);
        const EvaluatorResult answer = EvaluateWhole(text, names);
        EXPECT_EQ(answer.code != 0 ? ErrorName(answer.code) : ToUtf8(text), test.expected)
            << ToUtf8(CString(test.expression));
    }
}

TEST(WholeEvaluator, VariablesAndAssignments)
{
    struct {
        const char16_t* expression;
        const char* expected;
        const char16_t* x; // afterwards
    } cases[] = {
        {u"x=1+2", "3", u"3"}, {u"x", "7", u"7"},           {u"X+1", "1", u"7"}, // the fake minds case
        {u"x+1", "8", u"7"},   {u"undefined+1", "1", u"7"}, {u"x+=3", "10", u"10"},
        {u"x-=3", "4", u"4"},  {u"x*=3", "21", u"21"},      {u"x/=2", "3", u"3"},
        {u"x%=4", "3", u"3"},  {u"x<<=2", "28", u"28"},     {u"x>>=1", "3", u"3"},
        {u"x&=3", "3", u"3"},  {u"x|=8", "15", u"15"},      {u"x^=1", "6", u"6"},
        {u"y=x=5", "5", u"5"}, {u"x=1,x+1", "2", u"1"},     {u"x=2 , y=x*3 , x=y", "6", u"6"},
        {u"x = 4", "4", u"4"}, {u"(x=3)+1", "4", u"3"},     {u"hex", "255", u"7"},
        {u"octal", "8", u"7"}, {u"partly", "12", u"7"},     {u"word", "0", u"7"},
        {u"a.b", "9", u"7"},   {u"1=2", "!20000000", u"7"}, {u"fixed=1", "!5", u"7"},
    };
    for (const auto& test : cases) {
        FakeNames names;
        names.variables = {{u"x", u"7"},         {u"hex", u"0xFF"},  {u"octal", u"010"},
                           {u"partly", u"12ab"}, {u"word", u"word"}, {u"a.b", u" 9"}};
        CString text(test.expression);
        const EvaluatorResult answer = EvaluateWhole(text, names);
        EXPECT_EQ(answer.code != 0 ? ErrorName(answer.code) : ToUtf8(text), test.expected)
            << ToUtf8(CString(test.expression));
        EXPECT_EQ(ToUtf8(CString(names.variables[u"x"])), ToUtf8(CString(test.x)))
            << ToUtf8(CString(test.expression));
    }
}

TEST(NumberTexts, WhatIsNumeric)
{
    for (const char16_t* text : {u"1", u"-1", u"+1.5", u".5", u"5.", u" 12 ", u"0x1F", u"-0xff", u"00012"})
        EXPECT_TRUE(IsNumericText(text, u'.')) << ToUtf8(CString(text));
    for (const char16_t* text :
         {u"", u"-", u".", u"1a", u"1.2.3", u"0x", u"0xG", u"1 2", u"--1", u"1,5", u"abc"})
        EXPECT_FALSE(IsNumericText(text, u'.')) << ToUtf8(CString(text));
    EXPECT_TRUE(IsNumericText(u"1,5", u','));
}

TEST(NumberTexts, Thousands)
{
    const struct {
        const char16_t* number;
        const char* expected;
    } cases[] = {
        {u"1", "1"},
        {u"123", "123"},
        {u"1234", "1,234"},
        {u"-1234567", "-1,234,567"},
        {u"1234.5678", "1,234.5678"},
        {u"", ""},
        {u"abc", "abc"},
        {u"123456", "123,456"},
    };
    for (const auto& test : cases) {
        CString text(test.number);
        SeparateThousands(text, u'.', u',');
        EXPECT_EQ(ToUtf8(text), test.expected);
    }
}

} // namespace
