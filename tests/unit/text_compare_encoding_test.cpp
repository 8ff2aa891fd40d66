#include <gtest/gtest.h>

#include <string>

#include "text/compare.h"
#include "text/cstring.h"
#include "text/encoding.h"

namespace {

TEST(TextCompare, LetterCase)
{
    CString text(u"Straße ÄÖÜ éÉ ЖЯ Ωω İ");
    MakeUpper(text);
    EXPECT_EQ(ToUtf8(text), "STRAßE ÄÖÜ ÉÉ ЖЯ ΩΩ İ");
    MakeLower(text);
    EXPECT_EQ(ToUtf8(text), "straße äöü éé жя ωω İ");
    for (unsigned c = 0; c < 0x10000; ++c) {
        const char16_t unit = static_cast<char16_t>(c);
        EXPECT_EQ(UpperCase(UpperCase(unit)), UpperCase(unit)) << c;
        if (LowerCase(unit) != unit) {
            EXPECT_EQ(UpperCase(LowerCase(unit)), unit) << c;
        }
    }
}

TEST(TextCompare, Ordering)
{
    EXPECT_EQ(CompareNoCase(u"abc", u"ABC"), 0);
    EXPECT_LT(CompareNoCase(u"abc", u"ABD"), 0);
    EXPECT_GT(CompareNoCase(u"b", u"ABC"), 0);
    EXPECT_LT(CompareNoCase(u"ab", u"ABC"), 0);
    EXPECT_LT(CompareNoCase(u"", u"a"), 0);
    // "_" stands behind the letters when they are folded to capitals.
    EXPECT_GT(CompareNoCase(u"a_", u"ab"), 0);
    EXPECT_TRUE(BeginsNoCase(u"Hello", u"hE"));
    EXPECT_FALSE(BeginsNoCase(u"He", u"hello"));
    EXPECT_TRUE(EndsNoCase(u"x.CMD", u".cmd"));
    EXPECT_FALSE(EndsNoCase(u"cmd", u".cmd"));
}

TEST(TextCompare, Finding)
{
    EXPECT_EQ(FindNoCase(u"Hello World", u"WORLD"), 6u);
    EXPECT_EQ(FindNoCase(u"aXax", u"x", 2), 3u);
    EXPECT_EQ(FindNoCase(u"abc", u""), 0u);
    EXPECT_EQ(FindNoCase(u"abc", u"", 3), 3u);
    EXPECT_EQ(FindNoCase(u"abc", u"", 4), CString::npos);
    EXPECT_EQ(FindNoCase(u"abc", u"abcd"), CString::npos);
    EXPECT_EQ(FindNoCase(u"aab", u"ab"), 1u);
}

TEST(TextCompare, Letters)
{
    for (const char16_t unit : {u'a', u'Z', u'é', u'ß', u'Ж', u'中', u'ª'})
        EXPECT_TRUE(IsLetter(unit)) << int(unit);
    for (const char16_t unit : {u'0', u'_', u' ', u'×', u'÷', u'–', u'€', u'\u3000', u'\uE000'})
        EXPECT_FALSE(IsLetter(unit)) << int(unit);
}

TEST(TextEncoding, BothWays)
{
    for (const char* text : {"", "plain", "äöü", "中文", "😀x😀", "\xEF\xBF\xBD"}) {
        EXPECT_TRUE(IsValidUtf8(text));
        EXPECT_EQ(ToUtf8(FromUtf8(text)), text);
    }
    EXPECT_EQ(FromUtf8("😀").size(), 2u);
}

TEST(TextEncoding, MalformedInput)
{
    for (const char* bytes : {"\x80", "\xC3", "\xC0\x80", "\xE2\x82", "\xED\xA0\x80", "\xF4\x90\x80\x80",
                              "\xFF", "\xF0\x9F\x98", "a\xE2z"})
        EXPECT_FALSE(IsValidUtf8(bytes));
    EXPECT_EQ(ToUtf8(FromUtf8("a\xE2z")), "a\xEF\xBF\xBDz"); // the byte behind is not swallowed
    EXPECT_EQ(ToUtf8(FromUtf8("\xE2\x82")), "\xEF\xBF\xBD");
    const char16_t lone[] = {u'a', 0xD83D, u'b', 0xDE00, 0};
    EXPECT_EQ(ToUtf8(lone), "a\xEF\xBF\xBD"
                            "b\xEF\xBF\xBD");
    EXPECT_EQ(ToUtf8(FromAscii("a\xE4")), "a\xEF\xBF\xBD");
}

} // namespace
