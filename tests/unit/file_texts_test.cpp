// Small pure helpers of the functions about files.
#include <gtest/gtest.h>

#include "text/content_kind.h"
#include "text/encoding.h"
#include "text/link_record.h"
#include "text/size_units.h"
#include "text/wsl_names.h"

using namespace std::string_literals;

TEST(WslNames, ThereAndBack)
{
    EXPECT_EQ(ToUtf8(LinuxName(u"C:\\")), "/mnt/c");
    EXPECT_EQ(ToUtf8(LinuxName(u"\\\\?\\d:\\a b\\c")), "/mnt/d/a b/c");
    EXPECT_EQ(ToUtf8(LinuxName(u"\\\\WSL$\\Debian")), "/");
    EXPECT_EQ(ToUtf8(LinuxName(u"\\\\server\\share\\x")), "");
    EXPECT_EQ(ToUtf8(WindowsName(u"/mnt/c", u"")), "C:\\");
    EXPECT_EQ(ToUtf8(WindowsName(u"/mnt/c/x/y", u"")), "C:\\x\\y");
    EXPECT_EQ(ToUtf8(WindowsName(u"/mnt/cd/x", u"Debian")), "\\\\wsl.localhost\\Debian\\mnt\\cd\\x");
    EXPECT_EQ(ToUtf8(WindowsName(u"/home", u"")), "");
    EXPECT_EQ(ToUtf8(WindowsName(u"x", u"Debian")), "");
}

TEST(SizeUnits, LetterCaseCounts)
{
    EXPECT_EQ(UnitBytes(u'b'), 1);
    EXPECT_EQ(UnitBytes(u'k'), 1000);
    EXPECT_EQ(UnitBytes(u'K'), 1024);
    EXPECT_EQ(UnitBytes(u'P'), std::int64_t{1} << 50);
    EXPECT_FALSE(UnitBytes(u'x'));
    EXPECT_FALSE(UnitBytes(u'\0'));
}

TEST(ContentKind, TellsTextsFromTheRest)
{
    const std::pair<std::string, const char16_t*> rows[] = {
        {"", u"empty"},          {"a\r\n\x1A", u"ascii"},      {"\xE4pfel", u"ansi"},  {"\xC3\xA4", u"utf8"},
        {"\xFF\xFE"s, u"utf16"}, {"\xFE\xFF\0a"s, u"utf16be"}, {"MZ\0\1"s, u"binary"},
    };
    for (const auto& [bytes, kind] : rows)
        EXPECT_EQ(ContentKind(bytes), kind) << testing::PrintToString(bytes);
}

TEST(LinkRecord, NameForPeopleElseForTheSystem)
{
    const std::string junction = "\x03\0\0\xA0\0\0\0\0\0\0\x0E\0\x10\0\0\0\\\0?\0?\0\\\0c\0:\0\\\0\0\0"s;
    EXPECT_EQ(ReadLinkRecord(junction).kind, LinkKind::Junction);
    EXPECT_EQ(ToUtf8(ReadLinkRecord(junction).target), "c:\\");
    const std::string link = "\x0C\0\0\xA0\0\0\0\0\x04\0\x04\0\0\0\x04\0\x01\0\0\0a\0b\0x\0y\0"s;
    EXPECT_EQ(ReadLinkRecord(link).kind, LinkKind::SymbolicLink);
    EXPECT_EQ(ToUtf8(ReadLinkRecord(link).target), "ab");
    EXPECT_EQ(ToUtf8(ReadLinkRecord(link.substr(0, 22)).target), "");
    EXPECT_EQ(ReadLinkRecord(link.substr(0, 12)).kind, LinkKind::Other);
}
