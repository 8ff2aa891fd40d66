#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "batch/condition_parser.h"
#include "text/encoding.h"
#include "text/numbers.h"

namespace {

// Answers from memory; "%name%" and "%name" are the only references it knows.
class FakeWorld : public ConditionWorld {
public:
    bool Expand(CString& word) override
    {
        ++expansions;
        CString result;
        for (std::size_t i = 0; i < word.size(); ++i) {
            if (word[i] != u'%') {
                result.Append(word[i]);
                continue;
            }
            std::u16string name;
            while (i + 1 < word.size() && word[i + 1] >= u'a' && word[i + 1] <= u'z')
                name.push_back(word[++i]);
            if (word[i + 1] == u'%')
                ++i;
            result.Append(std::u16string_view(variables[name]));
        }
        word = result;
        return !broken;
    }
    bool Test(ConditionTest test, std::u16string_view argument) override
    {
        return test == ConditionTest::Exist ? argument == u"here" || argument == u"a b" : argument == u"yes";
    }
    int ErrorLevel() override { return 3; }
    int CompareNumbers(std::u16string_view left, std::u16string_view right) override
    {
        const double difference = std::stod(ToUtf8(left)) - std::stod(ToUtf8(right));
        return difference < 0 ? -1 : difference > 0 ? 1 : 0;
    }
    std::optional<bool> Matches(std::u16string_view text, std::u16string_view pattern) override
    {
        if (pattern == u"(")
            return std::nullopt;
        return text == pattern;
    }

    std::map<std::u16string, std::u16string> variables = {{u"x", u"5"},         {u"s", u"a b"},
                                                          {u"q", u"\"a b\""},   {u"op", u"EQ"},
                                                          {u"cond", u"1 EQ 1"}, {u"t", u"then"}};
    int expansions = 0;
    bool broken = false;
};

struct Case {
    const char16_t* text;
    int answer;
    const char16_t* rest;
};

void Check(const std::vector<Case>& cases, ConditionRules rules)
{
    for (const Case& one : cases) {
        FakeWorld world;
        CString text(one.text);
        EXPECT_EQ(ParseCondition(text, rules, world), one.answer) << ToUtf8(one.text);
        if (one.answer != condition::syntaxError) {
            EXPECT_EQ(ToUtf8(text), ToUtf8(one.rest)) << ToUtf8(one.text);
        }
    }
}

ConditionRules IfRules()
{
    ConditionRules rules;
    rules.needsCommand = true;
    return rules;
}

TEST(ConditionParser, Comparisons)
{
    Check(
        {
            {u"a == A cmd", 1, u"cmd"},
            {u"a EQC A cmd", 0, u"cmd"},
            {u"a eqc a cmd", 1, u"cmd"},
            {u"\"a b\"==\"A B\" cmd %x", 1, u"cmd %x"},
            {u"a==b cmd", 0, u"cmd"},
            {u"a ==a cmd", 1, u"cmd"},
            {u"a== a cmd", 1, u"cmd"},
            {u"a = a cmd", 1, u"cmd"},
            {u"\"a\"=\"a\" cmd", 1, u"cmd"},
            {u"a!=b cmd", 1, u"cmd"},
            {u"a NE a cmd", 0, u"cmd"},
            {u"10 GT 9 cmd", 1, u"cmd"},
            {u"abc GT abd cmd", 0, u"cmd"},
            {u"007 EQU 7 cmd", 1, u"cmd"},
            {u"0x10 == 16 cmd", 1, u"cmd"},
            {u"-5 LSS -4 cmd", 1, u"cmd"},
            {u"1.50 EQ 1.5 cmd", 1, u"cmd"},
            {u"123456789012345678901 GT 9 cmd", 1, u"cmd"},
            {u"5 LEQ 5 cmd", 1, u"cmd"},
            {u"5 GEQ 6 cmd", 0, u"cmd"},
            {u"1.2.3 EQ 1.2.3 cmd", 1, u"cmd"},
            {u"(x)==(x) cmd", 1, u"cmd"},
            {u"()==() cmd", 1, u"cmd"},
            {u"`a b` == a^ b cmd", 1, u"cmd"},
            {u"not a == b cmd", 1, u"cmd"},
            {u"! a == b cmd", 1, u"cmd"},
            {u"not not a == b cmd", 0, u"cmd"},
            {u"abc =~ abc cmd", 1, u"cmd"},
            {u"abc !~ \"::abc\" cmd", 0, u"cmd"},
            {u"a ?? b cmd", -1, u""},
            {u"a == a", -1, u""},
            {u"a ==", -1, u""},
            {u"a", -1, u""},
            {u"", -1, u""},
            {u"a =~ ( cmd", -1, u""},
        },
        IfRules());
}

TEST(ConditionParser, TestsAndErrorLevel)
{
    Check(
        {
            {u"exist here cmd", 1, u"cmd"},
            {u"EXIST there cmd", 0, u"cmd"},
            {u"not exist \"a b\" cmd", 0, u"cmd"},
            {u"!exist there cmd", 1, u"cmd"},
            {u"isalias yes cmd", 1, u"cmd"},
            {u"defined no cmd", 0, u"cmd"},
            {u"exist==exist cmd", 1, u"cmd"},
            {u"exist == x cmd", 0, u"cmd"},
            {u"exist", -1, u""},
            {u"errorlevel 3 cmd", 1, u"cmd"},
            {u"errorlevel 4 cmd", 0, u"cmd"},
            {u"ERRORLEVEL EQ 2 cmd", 0, u"cmd"},
            {u"errorlevel==3 cmd", 1, u"cmd"},
            {u"errorlevel -1 cmd", 1, u"cmd"},
            {u"errorlevel x cmd", -1, u""},
        },
        IfRules());
}

TEST(ConditionParser, JoinsFromLeftToRight)
{
    Check(
        {
            {u"1 == 1 .or. 1 == 2 .and. 1 == 2 cmd", 0, u"cmd"},
            {u"not exist there .and. isdir yes cmd", 1, u"cmd"},
            {u"1 == 1 .XOR. 2 == 2 cmd", 0, u"cmd"},
            {u"1 == 2 .and. 1 == 1 .or. 2 == 2 cmd", 1, u"cmd"},
            {u"1 == 1 .and. (1 == 2 .or. 2 == 2) cmd", 1, u"cmd"},
            {u"not (1 == 2 .or. 2 == 2) cmd", 0, u"cmd"},
            {u"(1 == 1 .and. (2 == 3 .or. 3 == 3)) cmd", 1, u"cmd"},
            {u"(1 == 1 .and. 2 == 2 x) cmd", -1, u""},
            {u"1 == 1 .and. cmd", -1, u""},
            {u"1 == 1 .\\tool.exe", 1, u".\\tool.exe"},
        },
        IfRules());
    // Bounded, however deep the parentheses go.
    CString deep;
    for (int i = 0; i < 5000; ++i)
        deep.Append(u"(1 .or. ");
    for (int i = 0; i < 5000; ++i)
        deep.Append(u')');
    FakeWorld world;
    EXPECT_EQ(ParseCondition(deep, IfRules(), world), condition::syntaxError);
}

TEST(ConditionParser, ExpandsWordsButNotTheCommand)
{
    Check(
        {
            {u"%x == 5 echo %x", 1, u"echo %x"},
            {u"%x% %op% 5 %x", 1, u"%x"},
            {u"\"%s%\"==\"a b\" echo %s", 1, u"echo %s"},
            {u"%q == \"a b\" cmd", 1, u"cmd"},
            {u"%cond cmd", 1, u"cmd"},
            {u"%none == x cmd", 0, u"cmd"},
            {u"%none EQ x cmd", 0, u"cmd"},
            {u"%none NE x cmd", 1, u"cmd"},
            {u"%none%==x cmd", 0, u"cmd"},
            {u"not exist %s cmd", 1, u"b cmd"}, // a value may bring a word too many
            {u"(%x == 5 .or. %x == 6) %x", 1, u"%x"},
        },
        IfRules());
    FakeWorld world;
    world.broken = true;
    CString text(u"%x == 5 cmd");
    EXPECT_EQ(ParseCondition(text, IfRules(), world), condition::syntaxError);
    // Text that is expanded already is taken as it stands.
    ConditionRules rules;
    rules.expand = false;
    text = u"100% EQ 100%";
    EXPECT_EQ(ParseCondition(text, rules, world), condition::holds);
    EXPECT_EQ(world.expansions, 1);
}

TEST(ConditionParser, BareNumbersOfIff)
{
    ConditionRules rules;
    rules.bareNumber = true;
    Check(
        {
            {u"5 then cmd", 1, u"then cmd"},
            {u"0 then", 0, u"then"},
            {u"0.0 then", 0, u"then"},
            {u"%x then echo %x", 1, u"then echo %x"},
            {u"not 0 then", 1, u"then"},
            {u"5 == 6 then", 0, u"then"},
            {u"x then", -1, u""},
        },
        rules);
    Check({{u"5 cmd", -1, u""}}, IfRules());
}

TEST(ConditionParser, RawWordsKeepReferencesWhole)
{
    const std::u16string_view cases[][2] = {
        {u"%x:a b=c% rest", u"%x:a b=c%"},
        {u"%x:a rest", u"%x:a"},
        {u"%@upper[a b] rest", u"%@upper[a b]"},
        {u"%(echo a b) rest", u"%(echo a b)"},
        {u"%{echo a b}x rest", u"%{echo a b}x"},
        {u"%[[1 == 1]] rest", u"%[[1 == 1]]"},
        {u"\"a b\"c rest", u"\"a b\"c"},
        {u"a^ b rest", u"a^ b"},
        {u"%((1 + 2))==3 rest", u"%((1 + 2))==3"},
        {u"\"a b", u"\"a b"},
        {u"a\nb", u"a"},
        {u"%", u"%"},
        {u"^", u"^"},
        {u"", u""},
    };
    for (const auto& one : cases)
        EXPECT_EQ(ToUtf8(one[0].substr(0, EndOfRawWord(one[0], 0, Syntax()))), ToUtf8(one[1]));
}

} // namespace
