#include <gtest/gtest.h>

#include "text/path_names.h"

namespace {

struct Parts {
    const char16_t* path;
    const char16_t* directory;
    const char16_t* name;
    const char16_t* extension;
};

TEST(PathNames, Parts)
{
    const Parts cases[] = {
        {u"C:\\a\\b.txt", u"C:\\a\\", u"b.txt", u".txt"},
        {u"a/b\\c.tar.gz", u"a/b\\", u"c.tar.gz", u".gz"},
        {u"c:prog.exe", u"c:", u"prog.exe", u".exe"},
        {u"dir.d\\plain", u"dir.d\\", u"plain", u""},
        {u".profile", u"", u".profile", u".profile"},
        {u"..", u"", u"..", u""},
        {u"a\\.", u"a\\", u".", u""},
        {u"trailing.", u"", u"trailing.", u"."},
        {u"C:\\", u"C:\\", u"", u""},
        {u"", u"", u"", u""},
        {u"\\\\server\\share\\x.y", u"\\\\server\\share\\", u"x.y", u".y"},
    };
    for (const Parts& c : cases) {
        EXPECT_EQ(DirectoryPart(c.path), c.directory);
        EXPECT_EQ(FileNamePart(c.path), c.name);
        EXPECT_EQ(ExtensionPart(c.path), c.extension);
    }
}

TEST(PathNames, StreamsStandBehindTheColonThatIsNoDrives)
{
    constexpr std::size_t npos = std::u16string_view::npos;
    EXPECT_EQ(StreamColon(u"a.txt:note"), 5u);
    EXPECT_EQ(StreamColon(u"C:a.txt:note:$DATA"), 7u);
    EXPECT_EQ(StreamColon(u"\\\\?\\C:\\d\\a::$DATA"), 10u);
    EXPECT_EQ(StreamColon(u"C:\\d\\a.txt"), npos);
    EXPECT_EQ(StreamColon(u"C:"), npos);
}

TEST(PathNames, Absolute)
{
    EXPECT_TRUE(IsAbsolutePath(u"C:\\x"));
    EXPECT_TRUE(IsAbsolutePath(u"c:/"));
    EXPECT_TRUE(IsAbsolutePath(u"\\\\server\\share"));
    EXPECT_FALSE(IsAbsolutePath(u"C:x"));
    EXPECT_FALSE(IsAbsolutePath(u"\\x")); // depends on the current drive
    EXPECT_FALSE(IsAbsolutePath(u"1:\\x"));
}

TEST(PathNames, Join)
{
    EXPECT_EQ(JoinPath(u"C:\\", u"x"), u"C:\\x");
    EXPECT_EQ(JoinPath(u"C:\\a", u"x"), u"C:\\a\\x");
    EXPECT_EQ(JoinPath(u"a/", u"x"), u"a/x");
    EXPECT_EQ(JoinPath(u"c:", u"x"), u"c:x");
    EXPECT_EQ(JoinPath(u"", u"x"), u"x");
}

TEST(PathNames, EntriesThatTheSystemWouldTakeForOthersAreLiteral)
{
    EXPECT_EQ(PathOfEntry(u"C:\\a\\", u"x.txt"), u"C:\\a\\x.txt");
    EXPECT_EQ(PathOfEntry(u"C:\\a\\", u"x."), u"\\\\?\\C:\\a\\x.");
    EXPECT_EQ(PathOfEntry(u"\\\\server\\share\\", u"x "), u"\\\\?\\UNC\\server\\share\\x ");
    EXPECT_EQ(PathOfEntry(u"\\\\?\\C:\\", u"nul .txt"), u"\\\\?\\C:\\nul .txt");
    EXPECT_EQ(PathOfEntry(u"C:\\", u"aux.c"), u"\\\\?\\C:\\aux.c");
    EXPECT_EQ(PathOfEntry(u"C:\\", u".."), u"C:\\..");
    EXPECT_TRUE(HasOddDirectory(u"C:\\a.\\b"));
    EXPECT_TRUE(HasOddDirectory(u"C:\\a \\"));
    EXPECT_FALSE(HasOddDirectory(u"C:\\a\\..\\.\\b."));
    EXPECT_FALSE(HasOddDirectory(u"\\\\?\\C:\\a.\\b"));
}

TEST(PathNames, Wildcards)
{
    EXPECT_TRUE(HasWildcards(u"a?b"));
    EXPECT_TRUE(HasWildcards(u"\\\\?\\C:\\*.c"));
    EXPECT_FALSE(HasWildcards(u"\\\\?\\C:\\a[b]"));
}

TEST(PathNames, Devices)
{
    for (const char16_t* name :
         {u"nul", u"NUL:", u"con", u"C:\\dir\\aux", u"com1", u"LPT9:", u"conin$", u"com\u00B2"})
        EXPECT_TRUE(IsDeviceName(name));
    for (const char16_t* name :
         {u"nul.txt", u"com0", u"com10", u"comx", u"console", u"", u":", u"C:\\con\\x"})
        EXPECT_FALSE(IsDeviceName(name));
}

TEST(PathNames, Urls)
{
    for (const char16_t* text :
         {u"http://example.org", u"\"https://a b\"", u"svn+ssh://host/x", u"mailto:a@b.c"})
        EXPECT_TRUE(QueryIsURL(text));
    for (const char16_t* text :
         {u"c://x", u"http://", u"http:/x", u"://x", u"a b://c", u"1a://b", u"echo http://x"})
        EXPECT_FALSE(QueryIsURL(text));
}

} // namespace
