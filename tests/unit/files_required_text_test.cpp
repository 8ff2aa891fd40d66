#include <gtest/gtest.h>

#include "files/required_text.h"

namespace {

struct Row {
    std::u16string_view expression;
    std::u16string_view anyCase;
    std::u16string_view exact;
};

TEST(RequiredText, IsWhatEveryMatchHolds)
{
    constexpr Row rows[] = {
        {u"needle", u"needle", u"needle"},
        {u"version *= *\\d+", u"ver", u"version"},
        {u"a+bc?d", u"a", u"a"},
        {u"ab{0,3}cde", u"cde", u"cde"},
        {u"abc|d", u"", u""},
        {u"x(abc|d)yz", u"yz", u"yz"},
        {u"x(abc)?(?:de)", u"x", u"x"},
        {u"\\x41bc", u"", u""},
        {u"\\bab\\.c\\w", u"ab.c", u"ab.c"},
        {u"[]x]ab", u"", u""},
        {u"[^a\\]b]cd[e]", u"cd", u"cd"},
        {u"[a[b]cd]ef", u"", u""},
        {u"(?i)abc", u"", u""},
        {u"fish asks", u"h a", u"fish asks"},
        {u"über", u"", u"ber"},
        {u"ab{x", u"", u""},
        {u"ab)", u"", u""},
        {u"\\", u"", u""},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(RequiredText(row.expression, RegexSyntax::Perl, RegexCase::Ignore), row.anyCase);
        EXPECT_EQ(RequiredText(row.expression, RegexSyntax::Perl, RegexCase::Exact), row.exact);
    }
    EXPECT_EQ(RequiredText(u"a\\|bc", RegexSyntax::Grep, RegexCase::Exact), u"");
}

} // namespace
