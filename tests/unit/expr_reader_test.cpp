#include "commands/expr_reader.h"

#include <string>

#include <gtest/gtest.h>

#include "lang/errors.h"
#include "text/encoding.h"
#include "text/words.h"

namespace {

// Words are parted by blanks; "''" is an empty one.
ExprAnswer Calculate(const char* text)
{
    const CString line = FromAscii(text);
    std::vector<CString> words;
    for (Word at = NextBlankWord(line, 0); at.length > 0; at = NextBlankWord(line, at.end())) {
        const CString word = line.Substr(at.start, at.length);
        words.push_back(word == u"''" ? CString() : word);
    }
    return CalculateExpr(words);
}

TEST(ExprReader, Answers)
{
    struct {
        const char* expression;
        const char* answer;
    } const rows[] = {
        {"5", "5"},
        {"1 + 2 * 3", "7"},
        {"( 1 + 2 ) * 3", "9"},
        {"10 - 3 - 2", "5"},
        {"100 / 7 / 2", "7"},
        {"-7 / 2", "-3"},
        {"-7 % 3", "-1"},
        {"99999999999999999999 * 99999999999999999999", "9999999999999999999800000000000000000001"},
        {"007 = 7", "1"},
        {"10 > 9", "1"},
        {"a10 > a9", "0"},
        {"a = A", "0"},
        {"abc < abd", "1"},
        {"1 < 2 < 1", "0"},
        {"2 <= 2 == 1", "1"},
        {"3 != 3", "0"},
        {"a | b", "a"},
        {"0 | b", "b"},
        {"'' | ''", "0"},
        {"-0 | ''", "0"},
        {"a & b", "a"},
        {"a & 0", "0"},
        {"'' & b", "0"},
        {"0 | 0 & 1 | 2", "2"},
        {"length abcd", "4"},
        {"length ''", "0"},
        {"length length", nullptr},
        {"length + length", "6"},
        {"length abc + 1", "4"},
        {"length ( ab | c )", "2"},
        {"substr abcdef 2 3", "bcd"},
        {"substr abc 3 99999999999999999999", "c"},
        {"substr abc 0 1", ""},
        {"substr abc 4 1", ""},
        {"substr abc 1 -1", ""},
        {"index abcdef dec", "3"},
        {"index abc x", "0"},
        {"index abc ''", "0"},
        {"match abc a.", "2"},
        {"abc : .*", "3"},
        {"abc : b", "0"},
        {"abc : ^a", "1"},
        {"abc1 : [a-z]*\\([0-9]\\)", "1"},
        {"abc : a\\(x*\\)c", ""},
        {"abc : \\(x\\)", ""},
        {"ABC : abc", "0"},
        {"a(b : a(b", "3"},
        {"3 : 3 + 1", "2"},
        {"+ + + 1", nullptr},
        {"+ match", "match"},
        {"2 + + 3", "5"},
    };
    for (const auto& row : rows) {
        const ExprAnswer answer = Calculate(row.expression);
        EXPECT_EQ(ToUtf8(answer.value), row.answer ? row.answer : "") << row.expression;
        EXPECT_EQ(answer.error != 0, !row.answer) << row.expression;
    }
}

TEST(ExprReader, Errors)
{
    struct {
        const char* expression;
        unsigned error;
        const char* culprit;
    } const rows[] = {
        {"1 +", errors::missingArgument, ""},
        {"1 2", errors::syntax, "2"},
        {"a + 1", errors::invalidNumber, "a"},
        {"1.5 + 1", errors::invalidNumber, "1.5"},
        {"- + 1", errors::invalidNumber, "-"},
        {"1 / 0", errors::divisionByZero, ""},
        {"1 % 0", errors::divisionByZero, ""},
        {"( 1", errors::missingParenthesis, ""},
        {"1 )", errors::syntax, ")"},
        {"( )", errors::syntax, ")"},
        {"a : \\(", errors::syntax, "\\("},
        {"substr abc x 1", errors::invalidNumber, "x"},
        {"index abc", errors::missingArgument, ""},
    };
    for (const auto& row : rows) {
        const ExprAnswer answer = Calculate(row.expression);
        EXPECT_EQ(answer.error, row.error) << row.expression;
        EXPECT_EQ(ToUtf8(answer.culprit), row.culprit) << row.expression;
    }
}

TEST(ExprReader, DepthHasALimit)
{
    EXPECT_EQ(CalculateExpr(std::vector<CString>(100000, u"(")).error, errors::nestedTooDeep);
    EXPECT_EQ(CalculateExpr(std::vector<CString>(100000, u"length")).error, errors::nestedTooDeep);
}

} // namespace
