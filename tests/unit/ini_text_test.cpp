#include "text/ini_text.h"

#include <gtest/gtest.h>

#include "text/encoding.h"

namespace {

std::string Bytes(const IniText& ini) { return ToUtf8(ini.Text()); }

} // namespace

TEST(IniText, FirstOfEqualEntriesCountsAndRemarksAreNone)
{
    const IniText ini(
        u"top=1\r\n; [no]\r\n[ A ]\r\nx = ' y '\r\n;x=3\r\nX=2\r\n[b]\r\n[a]\r\nz=\"q\r\nw=\r\n[open");
    EXPECT_EQ(ini.Value(u"a", u"x"), CString(u" y "));
    EXPECT_EQ(ini.Value(u"A", u"Z"), CString(u"\"q"));
    EXPECT_EQ(ini.Value(u"a", u"w"), CString());
    EXPECT_EQ(ini.Value(u"", u"TOP"), CString(u"1"));
    EXPECT_FALSE(ini.Value(u"b", u"x"));
    EXPECT_EQ(ini.Sections().size(), 3u);
    EXPECT_EQ(ini.Entries(u"a").size(), 3u);
}

TEST(IniText, ChangesTouchOneLine)
{
    struct Row {
        const char16_t *before, *section, *entry, *value; // no value: removed; no entry: the section
        const char* after;
    };
    const Row rows[] = {
        {u"", u"s", u"e", u"v", "[s]\r\ne=v\r\n"},
        {u"[s]", u"s", u"e", u"v", "[s]\r\ne=v\r\n"},
        {u"[s]\na=1\n\n[t]\nb=2\n", u"S", u"c", u"3", "[s]\na=1\nc=3\n\n[t]\nb=2\n"},
        {u"[s]\r\n a = 1 \r\n", u"s", u"A", u"22", "[s]\r\n a = 22 \r\n"},
        {u"[s]\r\na=\r\nb=", u"s", u"b", u"x", "[s]\r\na=\r\nb=x"},
        {u"[s]\na=1\nA=2\n;a=3\n", u"s", u"a", nullptr, "[s]\n;a=3\n"},
        {u"k=0\n[s]\na=1\n[t]\nb=2\n[S]\nc=3\n", u"s", nullptr, nullptr, "k=0\n[t]\nb=2\n"},
        {u"a=1\n[s]\nb=2\n", u"", u"c", u"3", "a=1\nc=3\n[s]\nb=2\n"},
    };
    for (const Row& row : rows) {
        IniText ini{CString(row.before)};
        if (row.value)
            ini.Set(row.section, row.entry, row.value);
        else if (row.entry)
            ini.Remove(row.section, row.entry);
        else
            ini.Remove(row.section);
        EXPECT_EQ(Bytes(ini), row.after);
    }
}
