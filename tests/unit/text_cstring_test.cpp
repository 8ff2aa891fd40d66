#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "text/cstring.h"
#include "text/encoding.h"

namespace {

TEST(TextCString, CopiesShareUntilOneChanges)
{
    CString a(u"hello");
    CString b = a;
    EXPECT_EQ(a.c_str(), b.c_str());
    b += u" world";
    EXPECT_EQ(ToUtf8(a), "hello");
    EXPECT_EQ(ToUtf8(b), "hello world");
    CString c = a;
    c.Set(0, u'J');
    EXPECT_EQ(ToUtf8(a), "hello");
    EXPECT_EQ(ToUtf8(c), "Jello");
    CString d = a;
    d.Clear();
    EXPECT_EQ(ToUtf8(a), "hello");
    EXPECT_TRUE(d.empty());
    CString e = a;
    e.Edit()[0] = u'x';
    EXPECT_EQ(ToUtf8(a), "hello");
}

TEST(TextCString, AssigningAndMovingToItself)
{
    CString a(u"text");
    CString& same = a;
    a = same;
    EXPECT_EQ(ToUtf8(a), "text");
    a = std::move(same);
    EXPECT_EQ(ToUtf8(a), "text");
    a = a.view();
    EXPECT_EQ(ToUtf8(a), "text");
    a = a.view().substr(1, 2);
    EXPECT_EQ(ToUtf8(a), "ex");
    a.Append(a).Append(a);
    EXPECT_EQ(ToUtf8(a), "exexexex");
    a.Insert(1, a.view().substr(0, 3));
    EXPECT_EQ(ToUtf8(a), "eexexexexex");
    a.Replace(0, 100, a.view().substr(9));
    EXPECT_EQ(ToUtf8(a), "ex");
}

// A view of one owner's text is good while another owner of the same block is being changed.
TEST(TextCString, TextOfAnotherOwner)
{
    CString a(u"abcdef");
    CString b = a;
    b.Replace(1, 2, a.view().substr(3));
    EXPECT_EQ(ToUtf8(b), "adefdef");
    EXPECT_EQ(ToUtf8(a), "abcdef");
}

TEST(TextCString, PlacesAreClamped)
{
    struct {
        std::size_t at, count;
        const char16_t* text;
        const char* expected;
    } cases[] = {
        {0, 0, u"x", "xabc"},        {3, 5, u"x", "abcx"},
        {9, 9, u"x", "abcx"},        {1, 1, u"", "ac"},
        {0, CString::npos, u"", ""}, {1, CString::npos, u"zz", "azz"},
        {2, 0, u"", "abc"},          {0, 3, u"longer than that", "longer than that"},
    };
    for (const auto& test : cases) {
        CString text(u"abc");
        text.Replace(test.at, test.count, test.text);
        EXPECT_EQ(ToUtf8(text), test.expected);
        EXPECT_EQ(text.c_str()[text.size()], u'\0');
    }
    const CString text(u"abc");
    EXPECT_EQ(text[3], u'\0');
    EXPECT_EQ(text[1000], u'\0');
    EXPECT_EQ(ToUtf8(text.Substr(1, 100)), "bc");
    EXPECT_EQ(ToUtf8(text.Substr(5)), "");
    EXPECT_EQ(ToUtf8(text.Substr(0)), "abc");
}

TEST(TextCString, EmptyTexts)
{
    CString none;
    EXPECT_EQ(none.c_str()[0], u'\0');
    EXPECT_EQ(none.front(), u'\0');
    EXPECT_EQ(none.back(), u'\0');
    none.Trim().Erase(0).Insert(3, u"");
    none += u"";
    EXPECT_TRUE(none.empty());
    EXPECT_EQ(none, CString(u""));
    EXPECT_EQ(none, CString(std::size_t{0}, u'x'));
    const char16_t* null = nullptr;
    EXPECT_EQ(CString(null), none);
    none += u'x';
    EXPECT_EQ(ToUtf8(none), "x");
}

TEST(TextCString, TrimmingByASet)
{
    EXPECT_EQ(ToUtf8(CString(u" \ta b\t ").Trim()), "a b");
    EXPECT_EQ(ToUtf8(CString(u"   ").Trim()), "");
    EXPECT_EQ(ToUtf8(CString(u"xxaxx").TrimLeft(u"x")), "axx");
    EXPECT_EQ(ToUtf8(CString(u"xxaxx").TrimRight(u"x")), "xxa");
    EXPECT_EQ(ToUtf8(CString(u"xxx").TrimRight(u"x")), "");
    CString shared(u" a ");
    CString other = shared;
    other.Trim();
    EXPECT_EQ(ToUtf8(shared), " a ");
}

TEST(TextCString, NulsInside)
{
    CString text(std::u16string_view(u"a\0b", 3));
    EXPECT_EQ(text.size(), 3u);
    text += u"c";
    EXPECT_EQ(text.size(), 4u);
    EXPECT_EQ(text[2], u'b');
    EXPECT_FALSE(text == u"a");
}

TEST(TextCString, GrowingUnitByUnit)
{
    CString text;
    for (int i = 0; i < 100000; ++i)
        text += static_cast<char16_t>(u'a' + i % 26);
    ASSERT_EQ(text.size(), 100000u);
    EXPECT_EQ(text[99999], static_cast<char16_t>(u'a' + 99999 % 26));
    EXPECT_LT(text.capacity(), 200000u);
}

TEST(TextCString, SharedBetweenThreads)
{
    const CString shared(u"shared text");
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&shared] {
            for (int n = 0; n < 20000; ++n) {
                CString copy = shared;
                if (n % 3 == 0)
                    copy += u"!";
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(ToUtf8(shared), "shared text");
}

} // namespace
