#include "files/target_names.h"

#include <gtest/gtest.h>

#include "text/encoding.h"

TEST(TargetNames, PatternsAreFilledInFromTheSource)
{
    struct Row {
        const char16_t* target;
        const char16_t* source;
        const char* expected;
    };
    const Row rows[] = {
        {u"*.bak", u"abc.txt", "abc.bak"},
        {u"*.bak", u"abc.def.txt", "abc.def.bak"},
        {u"*.bak", u"abc", "abc.bak"},
        {u"*.*.bak", u"a.b.c.d", "a.b.c.bak"},
        {u"*.*", u"abc.def.txt", "abc.def.txt"},
        {u"*", u"abc.def.txt", "abc.def.txt"},
        {u"new\\*", u"old\\abc.txt", "new\\abc.txt"},
        {u"d:*.c", u"c:\\x\\abc.txt", "d:abc.c"},
        {u"c:/out/*.c", u"abc.txt", "c:/out/abc.c"},
        // "*" stops at the literal text behind it, in any letter case; each literal takes a source unit.
        {u"*x.new", u"aaXbb.txt", "aax.new"},
        {u"*bb.new", u"aaxbb.txt", "aaxbb.new"},
        {u"*zz", u"abc.txt", "abc.txtzz"},
        {u"*[1].c", u"abc.txt", "abc.txt[1].c"},
        {u"*]b", u"a]b", "a]b]b"},
        {u"??x*.*", u"abcdef.txt", "abxdef.txt"},
        {u"a?c", u"xyz.txt", "ayc"},
        {u"????.?", u"ab.txt", "ab.t"},
        {u"*?x", u"aaxb", "aax"},
        {u"long_name*.txt", u"abc.dat", "long_name.txt"},
        {u"x*", u"abc.dat", "xbc.dat"},
        {u"plain.txt", u"abc.dat", "plain.txt"},
        // A "*" that no period follows takes all of the name, whatever the surplus.
        {u"*x", u"a.b.c", "a.b.cx"},
        // A period at the end goes, but not that of a parent directory.
        {u"*.", u"abc.txt", "abc"},
        {u"abc.", u"x", "abc"},
        {u"..", u"x", ".."},
        {u"sub\\..", u"x", "sub\\.."},
        {u"", u"abc", ""},
        {u"*.bak", u"", ".bak"},
        {u"https://host/*.txt", u"abc.c", "https://host/*.txt"},
    };
    for (const Row& row : rows) {
        CString result;
        EXPECT_TRUE(MakeWildcardName(result, row.target, row.source));
        EXPECT_EQ(ToUtf8(result), row.expected) << ToUtf8(row.target) << " from " << ToUtf8(row.source);
    }
}

TEST(TargetNames, ANameThatGrowsTooLongIsRefused)
{
    CString result(u"before");
    const CString longest(32768, u'x');
    EXPECT_FALSE(MakeWildcardName(result, u"d\\*", longest));
    EXPECT_EQ(result, u"before");
    EXPECT_TRUE(MakeWildcardName(result, u"*", longest));
    EXPECT_EQ(result.size(), 32768u);
    EXPECT_TRUE(MakeWildcardName(result, u"*.", longest)); // the period is not counted
}
