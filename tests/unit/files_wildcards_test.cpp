#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "files/wildcards.h"

namespace {

struct Case {
    const char16_t* pattern;
    const char16_t* name;
    bool matches;
};

void Check(const Case& c, bool dotRules, bool allowSets)
{
    EXPECT_EQ(WildcardComparison(c.pattern, c.name, dotRules, allowSets), c.matches ? 0 : 1)
        << testing::PrintToString(std::u16string(c.pattern)) << " on "
        << testing::PrintToString(std::u16string(c.name)) << (dotRules ? " with" : " without")
        << " dot rules";
}

TEST(Wildcards, WithAndWithoutDotRules)
{
    const Case cases[] = {
        {u"", u"", true},
        {u"", u"a", false},
        {u"abc", u"ABC", true},
        {u"\u00E4\u00F6", u"\u00C4\u00D6", true},
        {u"abc", u"abcd", false},
        {u"abcd", u"abc", false},
        {u"*", u"", true},
        {u"*", u"any.thing", true},
        {u"abc?", u"abc", true},
        {u"abc?", u"abcd", true},
        {u"abc?", u"abcde", false},
        {u"???", u"ab", true},
        {u"a?c", u"ac", false}, // nothing only at the end of the name
        {u"*?", u"", true},     // a run that begins with "*" is one "*"
        {u"*?*?x", u"x", true},
        {u"a*b*c", u"a-b-b-c", true},
        {u"a*b*c", u"a-c-b", false},
        {u"*ab", u"aab", true},
        {u"*aab", u"aaab", true},
        {u"*a?b", u"aaxb", true},
        {u"\"two words*\"", u"two words.txt", true},
        {u"\"a;b=c\".txt", u"a;b=c.txt", true}, // quotes keep list separators
        {u"a;b", u"a", true},                   // the pattern ends at ";" and "="
        {u"a;b", u"b", false},
        {u"a=b", u"a", true},
        {u"*;", u"x;y", true},
    };
    for (const Case& c : cases) {
        Check(c, true, true);
        Check(c, false, false);
    }
}

TEST(Wildcards, DotRules)
{
    const Case cases[] = {
        {u"*.txt", u"a.txt", true},
        {u"*.txt", u"a.txt.bak", false},
        {u"*.txt", u"a.b.txt", true},
        {u"*.b*", u"a.b.txt", true}, // the rest holds a "*": any period will do
        {u"a*.t?t", u"a.tat.tot", true},
        {u"*.*", u"README", true},
        {u"*.*", u"a.b.c", true},
        {u"*.???", u"README", true},
        {u"abc.*", u"abc", true},
        {u"abc.*", u"abcd", false},
        {u"*.", u"README", true},
        {u"*.", u"a.b", false},
        {u"abc.", u"abc", true},
        {u"a.b.", u"a.b", false}, // has an extension
        {u"*.", u"ends.", true},
        {u"a???.txt", u"a.txt", true}, // "?" facing a period passes "?" and "*" and the pattern's period
        {u"a?*.txt", u"a.txt", true},
        {u"a??b", u"a.b", true}, // no period in the pattern: the name's is stepped over
        {u"????.txt", u"ab.txt", true},
        {u"?.txt", u".txt", true},
        {u"*", u".", true},
        {u"", u"..", true},
        {u".", u".", true},
        {u"..", u"..", true},
        {u"a*", u"..", false},
        {u"*x.b*.txt", u"x.b", false},
    };
    for (const Case& c : cases)
        Check(c, true, true);
    const Case without[] = {
        {u"*.txt", u"a.txt.bak", false}, {u"*.*", u"README", false}, {u"abc.", u"abc", false},
        {u"a???.txt", u"a.txt", false},  {u"*", u".", true},         {u"", u".", false},
    };
    for (const Case& c : without)
        Check(c, false, true);
}

TEST(Wildcards, Sets)
{
    const Case cases[] = {
        {u"[!a-c]*", u"Delta", true},
        {u"[!a-c]*", u"alpha", false},
        {u"[!a-c]*", u"Bravo", false},
        {u"[^a]x", u"bx", true},
        {u"[abc]", u"B", true},
        {u"[abc]", u"d", false},
        {u"[a-]x", u"-x", true},
        {u"[-a]x", u"-x", true},
        {u"[A-C0-9]z", u"5Z", true},
        {u"[c-a]", u"b", false},
        {u"[?]x", u"qx", true},
        {u"[!?]x", u"qx", false},
        {u"a[]", u"a", true}, // an empty set matches the end, and nothing else
        {u"a[]", u"ab", false},
        {u"a[b]", u"a", false},
        {u"a[!b]", u"a", false},
        {u"[;=]", u";", true},
        {u"a[b", u"a[b", true}, // never closed: no set
        {u"[.]*", u".", true},  // and "." is not empty for a pattern that begins with a set
        {u"*[0-9].t*", u"f12.txt", true},
    };
    for (const Case& c : cases)
        Check(c, true, true);
    Check({u"a[b]", u"a[b]", true}, true, false);
    Check({u"a[b]", u"ab", false}, true, false);
}

TEST(Wildcards, Lists)
{
    EXPECT_EQ(WildcardComparisonEx(u"*.c;*.h", u"x.h", true, true), 0);
    EXPECT_EQ(WildcardComparisonEx(u";;*.h;", u"x.h", true, true), 0);
    EXPECT_EQ(WildcardComparisonEx(u"*.c;*.h=x;*.o", u"x.o", true, true), 1);
    EXPECT_EQ(WildcardComparisonEx(u"\"a;b\";c", u"c", true, true), 0);
    EXPECT_EQ(WildcardComparisonEx(u"\"a;b\";c", u"a;b", true, true), 0);
    EXPECT_EQ(WildcardComparisonEx(u"a[;]b;c", u"a;b", true, true), 0);
    EXPECT_EQ(WildcardComparisonEx(u"a[;]b;c", u"]b", true, false), 0);
    EXPECT_EQ(WildcardComparisonEx(u"", u"", true, true), 1);
}

TEST(Wildcards, RegularExpressions)
{
    EXPECT_EQ(WildcardComparison(u"::[a-c]+\\d", u"ABC7", true, true), 0);
    EXPECT_EQ(WildcardComparison(u"::b", u"abc", true, true), 1); // the whole name
    EXPECT_EQ(WildcardComparison(u"::a|ab", u"ab", true, true), 0);
    EXPECT_EQ(WildcardComparison(u"::(", u"(", true, true), -1);
    EXPECT_EQ(WildcardComparison(u"::a\\{2\\}", u"aa", true, true, RegexSyntax::Grep), 0);
    EXPECT_EQ(WildcardComparisonEx(u"::x;y", u"x;y", true, true), 0);
    EXPECT_EQ(WildcardComparison(u"::.*", u"\xD800 lone", true, true), 0);
    EXPECT_EQ(WildcardComparison(u"::", u"", true, true), 0);
    EXPECT_EQ(WildcardComparison(u"\"::a b+\"", u"A BB", true, true), 0);
}

TEST(Wildcards, HardPatternsStayBounded)
{
    using Clock = std::chrono::steady_clock;
    const std::u16string name(5000, u'a');
    const std::u16string manyLetters = u"*" + std::u16string(2500, u'a') + u"b";
    for (const std::u16string_view pattern :
         {std::u16string_view(u"*a*a*a*a*b"), std::u16string_view(manyLetters)}) {
        const auto start = Clock::now();
        EXPECT_EQ(WildcardComparison(pattern, name, true, true), 1);
        // The sanitizers cost much of this; a search that tries every star again would take hours.
        EXPECT_LT(Clock::now() - start, std::chrono::seconds(2));
    }
}

TEST(Regex, SearchTellsGroups)
{
    const Regex regex(u"(x)?([a-z]+)-(?<n>\\d+)", RegexSyntax::Perl, RegexMatch::Anywhere, RegexCase::Exact);
    ASSERT_TRUE(regex.IsValid());
    std::vector<Regex::Span> groups;
    ASSERT_TRUE(regex.Search(u"AB cd-12", 0, &groups));
    EXPECT_EQ(groups.at(0).start, 3U);
    EXPECT_EQ(groups.at(0).length, 5U);
    EXPECT_FALSE(regex.Search(u"cd-12", 2));
    EXPECT_FALSE(regex.Search(u"CD-"));
}

TEST(Regex, WholeMatchesInEveryDialect)
{
    struct DialectCase {
        RegexSyntax syntax;
        const char16_t* expression;
    };
    // "a", or "ab" as the later alternative; the dialect that knows no alternatives repeats instead.
    const DialectCase cases[] = {
        {RegexSyntax::Perl, u"(a|ab)"},    {RegexSyntax::Ruby, u"(a|ab)"},
        {RegexSyntax::Java, u"(a|ab)"},    {RegexSyntax::Posix, u"(a|ab)"},
        {RegexSyntax::Gnu, u"(a|ab)"},     {RegexSyntax::Python, u"(a|ab)"},
        {RegexSyntax::Grep, u"\\(ab*\\)"}, {RegexSyntax::Emacs, u"\\(a\\|ab\\)"},
    };
    for (const DialectCase& c : cases) {
        const Regex regex(c.expression, c.syntax, RegexMatch::Whole);
        ASSERT_TRUE(regex.IsValid());
        std::vector<Regex::Span> groups;
        EXPECT_TRUE(regex.Search(u"ab", 0, &groups)) << testing::PrintToString(std::u16string(c.expression));
        ASSERT_EQ(groups.size(), 2U);
        EXPECT_EQ(groups[1].length, 2U);
        EXPECT_FALSE(regex.Search(u"abc"));
        EXPECT_FALSE(regex.Search(u"xab"));
    }
    EXPECT_FALSE(Regex(u"a)|(b", RegexSyntax::Perl, RegexMatch::Whole).IsValid());
}

TEST(Regex, EndlessExpressionsGiveUp)
{
    const Regex regex(u"(a+)+$", RegexSyntax::Perl, RegexMatch::Anywhere);
    EXPECT_FALSE(regex.Search(std::u16string(60, u'a') + u"b"));
}

} // namespace
