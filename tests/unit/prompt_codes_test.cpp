#include "console/prompt_codes.h"

#include <gtest/gtest.h>

#include "text/encoding.h"

namespace {

class MadeUpWorld : public PromptFacts {
public:
    CString directory = u"C:\\Work\\src\\100%";
    CString Date() override { return u"31.01.2026"; }
    CString IsoDate() override { return u"2026-01-31"; }
    CString Time() override { return u"14:05:33.27"; }
    CString ShortTime() override { return u"14:05"; }
    CString Directory() override { return directory; }
    CString DirectoryOf(char16_t drive) override { return CString(1, drive) + u":\\there"; }
    CString RemoteName() override { return u"\\\\server\\share "; }
    CString ErrorLevel() override { return u"7"; }
    CString UserName() override { return u"pat"; }
    CString Version() override { return u"33.0"; }
    CString Nesting() override { return u"2"; }
    std::size_t StackDepth() override { return 3; }
};

struct Case {
    const char16_t* pattern;
    const char16_t* expected;
};

class PromptCodes : public testing::TestWithParam<Case> {};

TEST_P(PromptCodes, AreReplaced)
{
    MadeUpWorld world;
    const Case& c = GetParam();
    EXPECT_EQ(ToUtf8(ExpandPromptCodes(c.pattern, world, false)), ToUtf8(c.expected));
}

INSTANTIATE_TEST_SUITE_P(
    All, PromptCodes,
    testing::Values(Case{u"", u""}, Case{u"plain text", u"plain text"},
                    Case{u"$p$g", u"C:\\Work\\src\\100%>"}, Case{u"$A$B$C$F$L$G$Q$S$$", u"&|()<>= $"},
                    Case{u"$e[1m$_", u"\x1b[1m\r\n"},
                    Case{u"$d $i $t $k", u"31.01.2026 2026-01-31 14:05:33.27 14:05"},
                    Case{u"$n$m$w", u"C\\\\server\\share C:\\...\\100%"},
                    Case{u"$r$u$v$z$+", u"7pat33.02+++"},
                    // The drive belongs to the code only when it is one.
                    Case{u"$xd:!", u"d:\\there!"}, Case{u"$xd", u"C:\\Work\\src\\100%d"},
                    Case{u"$x", u"C:\\Work\\src\\100%"},
                    // Taking back reaches into values, knows pairs, and stops at the start.
                    Case{u"$t$h$h$h", u"14:05:33"}, Case{u"a\U0001F600$h", u"a"}, Case{u"$h$ha", u"a"},
                    // What is no code shows nothing.
                    Case{u"a$!b$", u"ab"}));

TEST(PromptCodesWithPercents, ValuesSurviveExpansionOfVariables)
{
    MadeUpWorld world;
    EXPECT_EQ(ToUtf8(ExpandPromptCodes(u"%x% $p$h", world, true)), "%x% C:\\Work\\src\\100");
    EXPECT_EQ(ToUtf8(ExpandPromptCodes(u"%x%$p", world, true)), "%x%C:\\Work\\src\\100%%");
}

TEST(PromptCodesOnNetworkPath, HaveNoDriveLetter)
{
    MadeUpWorld world;
    world.directory = u"\\\\server\\share\\a\\b\\c";
    EXPECT_EQ(ToUtf8(ExpandPromptCodes(u"[$n]$w", world, false)), "[]\\\\server\\share\\...\\c");
}

TEST(ShortenPath, KeepsRootAndLastName)
{
    const Case cases[] = {
        {u"C:\\", u"C:\\"},
        {u"C:\\a", u"C:\\a"},
        {u"C:\\a\\b", u"C:\\a\\b"},
        {u"C:\\a\\b\\c", u"C:\\...\\c"},
        {u"\\\\server\\share", u"\\\\server\\share"},
        {u"\\\\server\\share\\a\\b", u"\\\\server\\share\\a\\b"},
        {u"\\\\server\\share\\a\\b\\c", u"\\\\server\\share\\...\\c"},
        {u"", u""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(ToUtf8(ShortenPath(c.pattern)), ToUtf8(c.expected));
}

} // namespace
