#include "files/directory_name.h"

#include <gtest/gtest.h>

#include "text/encoding.h"

namespace {

TEST(CleanDirectoryName, ReadsNamesAsPeopleWriteThem)
{
    const struct {
        const char16_t* name;
        const char* expected;
    } cases[] = {
        {u"", ""},
        {u"  a b \t", "a b"},
        {u"\"c:\\program files\"\\x", "c:\\program files\\x"},
        {u".", "."},
        {u"..", ".."},
        {u"...", "..\\.."},
        {u"....", "..\\..\\.."},
        {u"...\\tools", "..\\..\\tools"},
        {u"..../x", "..\\..\\../x"},
        {u"d:...", "d:..\\.."},
        {u"a\\...\\b", "a\\..\\..\\b"},
        {u"\\", "\\"},
        {u"\\\\server\\share\\", "\\\\server\\share\\"},
        {u"...a", "...a"}, // a name, not steps
        {u"a...", "a..."},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ToUtf8(CleanDirectoryName(c.name)), c.expected) << ToUtf8(c.name);
}

TEST(DriveLetter, IsUpperCaseAndNeedsAColon)
{
    EXPECT_EQ(DriveLetter(u"d:x"), u'D');
    EXPECT_EQ(DriveLetter(u"d"), u'\0');
    EXPECT_EQ(DriveLetter(u"1:"), u'\0');
    EXPECT_EQ(DriveLetter(u"\\\\d:"), u'\0');
}

TEST(EndsInWildcard, LooksAtTheLastComponentOnly)
{
    EXPECT_TRUE(EndsInWildcard(u"a\\b*"));
    EXPECT_TRUE(EndsInWildcard(u"?"));
    EXPECT_FALSE(EndsInWildcard(u"\\\\?\\c:\\a"));
    EXPECT_FALSE(EndsInWildcard(u"a*\\b"));
}

} // namespace
