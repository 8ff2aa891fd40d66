#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "text/cell_width.h"
#include "text/encoding.h"
#include "text/escapes.h"
#include "text/references.h"
#include "text/scanner.h"
#include "text/words.h"

namespace {

using View = std::u16string_view;

constexpr std::size_t npos = View::npos;

Syntax Everyday()
{
    Syntax syntax;
    syntax.openQuotes = true;
    syntax.cmdDelimiters = true;
    return syntax;
}

TEST(TextScanner, FindsTargetsOutsideQuotes)
{
    const struct {
        const char16_t* text;
        View quoting;
        std::size_t expected;
        char16_t unclosed;
    } cases[] = {
        {u"a & b", quotes::both, 2, 0},
        {u"\"a & b\" & c", quotes::both, 8, 0},
        {u"`a & b` & c", quotes::both, 8, 0},
        {u"\"a & b\"", quotes::back, 3, 0},
        {u"a ^& b & c", quotes::both, 7, 0},
        {u"\"^\" & c", quotes::both, 4, 0}, // the escape character is literal in quotes
        {u"\"a & b", quotes::both, npos, u'"'},
        {u"`a & b", quotes::both, npos, u'`'},
        {u"\"`\" & x", quotes::both, 4, 0}, // a back-quote in double quotes is none
        {u"(a & b) & c", quotes::bothAndParentheses, 8, 0},
        {u"(a & (b & c)) & d", quotes::bothAndParentheses, 14, 0},
        {u"(a \")\" & b) & c", quotes::bothAndParentheses, 12, 0},
        {u"(a ^) & b) & c", quotes::bothAndParentheses, 11, 0},
        {u"(a & b", quotes::bothAndParentheses, npos, u'('},
        {u"a) & b", quotes::bothAndParentheses, 3, 0},
        {u"[a & b] & c", quotes::backAndBrackets, 8, 0},
        {u"^", quotes::both, npos, 0},
        {u"x^", quotes::both, npos, 0},
        {u"", quotes::both, npos, 0},
    };
    for (const auto& test : cases) {
        char16_t unclosed = 0;
        EXPECT_EQ(scan(test.text, u"&", test.quoting, Syntax(), 0, &unclosed), test.expected)
            << ToUtf8(test.text);
        EXPECT_EQ(unclosed, test.unclosed) << ToUtf8(test.text);
    }
}

TEST(TextScanner, EscapesCanBeOffOrSought)
{
    Syntax off;
    off.escapes = false;
    EXPECT_EQ(scan(u"a^&b", u"&", quotes::both, off), 2u);
    EXPECT_EQ(scan(u"a^&b", u"^", quotes::both, Syntax()), 1u);
    EXPECT_EQ(scan(u"a&b&c", u"&", quotes::both, Syntax(), 2), 3u);
    EXPECT_EQ(scan(u"a&b", u"&", quotes::both, Syntax(), 9), npos);
}

TEST(TextScanner, OddQuotesInEverydayBatchFiles)
{
    const Syntax everyday = Everyday();
    char16_t unclosed = 0;
    EXPECT_EQ(scan(u"echo \"a & b", u"&", quotes::both, everyday, 0, &unclosed), npos);
    EXPECT_EQ(unclosed, 0);
    EXPECT_EQ(scan(u"echo \"a\n & b", u"&", quotes::both, everyday), 9u); // its own line only
    EXPECT_EQ(scan(u"it`s a & b", u"&", quotes::both, everyday), 7u);
}

TEST(TextScanner, ClosingBrackets)
{
    const struct {
        const char16_t* text;
        std::size_t expected;
    } cases[] = {
        {u"()", 1},    {u"(a(b)c)d", 6}, {u"(", npos},  {u"((a)", npos}, {u"[a[b]]", 5},
        {u"[a(b]", 4}, {u"{a{}}", 4},    {u"[`]`]", 4}, {u"[^]]", 3},    {u"[\"]\"]", 2},
    };
    for (const auto& test : cases)
        EXPECT_EQ(FindClosing(test.text, 0, quotes::back, Syntax()), test.expected) << ToUtf8(test.text);
    EXPECT_EQ(FindClosing(u"[\"]\"]", 0, quotes::both, Syntax()), 4u);
}

TEST(TextReferences, ArePassedOver)
{
    const struct {
        const char16_t* text;
        std::size_t expected;
        std::size_t everyday;
    } cases[] = {
        {u"%", 1, 1},
        {u"%%(a)", 2, 2},
        {u"%a b", 1, 1},
        {u"%(a & b) c", 8, 8},
        {u"%{a & {b}} c", 10, 10},
        {u"%[[a & b]] c", 10, 10},
        {u"%[a]", 1, 1},
        {u"%@f[a & b] c", 10, 10},
        {u"%@f[a[&]b] c", 10, 10},
        {u"%@f[`]`] c", 8, 8},
        {u"%@f a[b]", 1, 1},
        {u"%@f[a", 1, 1},
        {u"%x:&=and% c", 9, 9},
        {u"%x:~1,2% c", 8, 8},
        {u"%x:^%=a% c", 8, 8},
        {u"%x:y% c", 1, 1},
        {u"%xy%+1", 4, 4},
        {u"%1%+1", 1, 1},
        {u"%x:a & set y=%z%", 1, 14},
        {u"%x:=", 1, 1},
        {u"%:a=b%", 1, 1},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(PassReference(test.text, 0, Syntax()), test.expected) << ToUtf8(test.text);
        EXPECT_EQ(PassReference(test.text, 0, Everyday()), test.everyday) << ToUtf8(test.text);
    }
}

TEST(TextWords, Splitting)
{
    const struct {
        const char16_t* text;
        std::vector<std::string> words;
        std::vector<std::string> everyday;
    } cases[] = {
        {u"", {}, {}},
        {u"  \t, ", {}, {}},
        {u"a b\tc,d", {"a", "b", "c", "d"}, {"a", "b", "c", "d"}},
        {u"a=b;c", {"a=b;c"}, {"a", "b", "c"}},
        {u"\"a b\" c", {"\"a b\"", "c"}, {"\"a b\"", "c"}},
        {u"x\"a b\"y c", {"x\"a b\"y", "c"}, {"x\"a b\"y", "c"}},
        {u"`a b` c", {"`a b`", "c"}, {"`a b`", "c"}},
        {u"it`s a b", {"it`s", "a", "b"}, {"it`s", "a", "b"}},
        {u"\"a b", {"\"a b"}, {"\"a b"}},
        {u"/[s1,2] x", {"/[s1,2]", "x"}, {"/[s1,2]", "x"}},
        {u"a[ b", {"a[", "b"}, {"a[", "b"}},
        {u"a[b c]d e", {"a[b c]d", "e"}, {"a[b c]d", "e"}},
        {u"a^ b c", {"a^ b", "c"}, {"a^ b", "c"}},
        {u"a\nb", {"a", "b"}, {"a", "b"}},
        {u"a^", {"a^"}, {"a^"}},
    };
    for (const auto& test : cases) {
        for (const bool everyday : {false, true}) {
            const Syntax syntax = everyday ? Everyday() : Syntax();
            std::vector<std::string> words;
            for (const CString& word : SplitArguments(test.text, false, syntax))
                words.push_back(ToUtf8(word));
            const auto& expected = everyday ? test.everyday : test.words;
            EXPECT_EQ(words, expected) << ToUtf8(test.text);
            EXPECT_EQ(CountArguments(test.text, syntax), static_cast<int>(expected.size()));
        }
    }
}

TEST(TextWords, ByNumber)
{
    const View text = u" one  \"two 2\" three ";
    std::size_t start = 0;
    EXPECT_EQ(ToUtf8(GetNthArgument(text, 1, Syntax(), &start)), "\"two 2\"");
    EXPECT_EQ(start, 6u);
    EXPECT_EQ(ToUtf8(GetNthArgument(text, 3, Syntax(), &start)), "");
    EXPECT_EQ(start, npos);
    EXPECT_EQ(ToUtf8(TailFromArgument(text, 1, Syntax())), "\"two 2\" three ");
    EXPECT_EQ(ToUtf8(TailFromArgument(text, 3, Syntax())), "");
}

TEST(TextWords, BackQuotesGoWhereTheTableSaysSo)
{
    const std::vector<CString> words = SplitArguments(u"`a b` x`c` ` ``", true, Syntax());
    ASSERT_EQ(words.size(), 3u);
    EXPECT_EQ(ToUtf8(words[0]), "a b");
    EXPECT_EQ(ToUtf8(words[1]), "x`c`");
}

TEST(TextWords, Quotes)
{
    EXPECT_EQ(ToUtf8(WithoutQuotes(u"\"a\" \"b")), "a b");
    EXPECT_EQ(ToUtf8(WithoutOuterQuotes(u"\"a b\"")), "a b");
    EXPECT_EQ(ToUtf8(WithoutOuterQuotes(u"\"a b")), "\"a b");
    EXPECT_EQ(ToUtf8(WithoutOuterQuotes(u"\"")), "\"");
    EXPECT_EQ(ToUtf8(WithoutOuterQuotes(u"\"\"")), "");
    EXPECT_EQ(ToUtf8(AddQuotes(u"a b")), "\"a b\"");
    EXPECT_EQ(ToUtf8(AddQuotes(u"ab")), "ab");
    EXPECT_EQ(ToUtf8(AddQuotes(u"a&b")), "\"a&b\"");
    EXPECT_EQ(ToUtf8(AddQuotes(u"\"a b\"")), "\"a b\"");
}

TEST(TextEscapes, Sequences)
{
    const struct {
        const char16_t* text;
        const char* escaped;   // every sequence counts
        const char* unescaped; // not those in quotes
    } cases[] = {
        {u"plain", "plain", "plain"},
        {u"a^&b", "a&b", "a&b"},
        {u"^b^c^e^f^g^k^n^q^r^s^t", "\b,\x1b\f\a`\n\"\r \t", "\b,\x1b\f\a`\n\"\r \t"},
        {u"^B^N", "\b\n", "\b\n"},
        {u"^^", "^", "^"},
        {u"^z", "z", "z"},
        {u"a^", "a", "a"},
        {u"\"a^&b\" ^&", "\"a&b\" &", "\"a^&b\" &"},
        {u"`a^&b` ^&", "`a&b` &", "`a^&b` &"},
        {u"it`s ^&", "it`s &", "it`s &"},
        {u"^\"a^&", "\"a&", "\"a&"},
    };
    for (const auto& test : cases) {
        CString text(test.text);
        EscapeLine(text, Syntax());
        EXPECT_EQ(ToUtf8(text), test.escaped) << ToUtf8(test.text);
        text = test.text;
        UnEscapeLine(text, Syntax());
        EXPECT_EQ(ToUtf8(text), test.unescaped) << ToUtf8(test.text);
        Syntax off;
        off.escapes = false;
        text = test.text;
        UnEscapeLine(text, off);
        EXPECT_EQ(ToUtf8(text), ToUtf8(test.text));
    }
}

// Lines of nothing but openings must not take a time that grows with their square.
TEST(TextWords, HostileLinesTakeLittleTime)
{
    CString brackets(std::size_t{65535}, u'[');
    EXPECT_EQ(CountArguments(brackets, Syntax()), 1);
    CString spaced;
    for (int i = 0; i < 20000; ++i)
        spaced += u"[ ";
    EXPECT_EQ(CountArguments(spaced, Syntax()), 20000);
    CString quoted(std::size_t{65535}, u'"');
    char16_t unclosed = 0;
    EXPECT_EQ(scan(quoted, u"&", quotes::both, Syntax(), 0, &unclosed), npos);
    EXPECT_EQ(unclosed, u'"');
}

TEST(TextCells, RowsOnScreenKnowTabsAndWideCharacters)
{
    EXPECT_EQ(RowsOnScreen(u"", 8), 1);
    EXPECT_EQ(RowsOnScreen(u"12345678", 8), 1);
    EXPECT_EQ(RowsOnScreen(u"123456789", 8), 2);
    EXPECT_EQ(RowsOnScreen(u"1\t\t2", 16), 2);
    EXPECT_EQ(RowsOnScreen(u"1\u6F22\u6F22\u6F22\u6F222", 5), 2);
    EXPECT_EQ(RowsOnScreen(u"1\u6F22\u6F22\u6F22\u6F22", 4), 3); // nine cells, but none is halved
    EXPECT_EQ(RowsOnScreen(u"123e\u0301", 4), 1);
}

} // namespace
