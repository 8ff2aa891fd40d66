// Alias parameters, quick substitution and the host's command line.
#include <gtest/gtest.h>

#include "core/alias_substitution.h"
#include "core/substitution.h"
#include "lifecycle/start_options.h"
#include "text/encoding.h"

namespace {

TEST(Aliases, Parameters)
{
    const struct {
        const char16_t* value;
        const char16_t* arguments;
        const char* expanded;
    } cases[] = {
        {u"dir /w", u" *.txt", "dir /w *.txt"},
        {u"dir /w", u"", "dir /w"},
        {u"echo %1-%2", u" a b c d", "echo a-b c d"},
        {u"echo %2 %1", u" a b", "echo b a"},
        {u"echo %2$", u" a b c d", "echo b c d"},
        {u"echo %$!", u" a b c", "echo a b c!"},
        {u"echo %-2$|", u" a b c d", "echo a b| b c d"},
        {u"echo %#", u" a \"b c\" d", "echo 3 a \"b c\" d"},
        {u"echo [%3]", u" a b", "echo []"},
        {u"echo %%1 %path% `%1`", u" x", "echo %%1 %path% `%1` x"},
        {u"echo %1", u" \"a b\" [c d]", "echo \"a b\" [c d]"},
        {u"echo %0.", u" a", "echo . a"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ToUtf8(SubstituteAliasParameters(c.value, c.arguments, Syntax())), c.expanded)
            << ToUtf8(c.value);
}

TEST(Aliases, Names)
{
    const struct {
        const char16_t* command;
        const char* name;
        bool bypassed;
    } cases[] = {
        {u"ls -l", "ls", false}, {u"  @@ls", "ls", false}, {u"*dir", "", true},
        {u"a&b", "a", false},    {u"a=b", "a", false},     {u"..\\x y", "..\\x", false},
        {u"@@", "", false},      {u"g:x y", "g:x", false}, {u"\"a b\"", "", false},
    };
    for (const auto& c : cases) {
        const AliasName name = ReadAliasName(c.command, Syntax());
        EXPECT_EQ(ToUtf8(name.name), c.name) << ToUtf8(c.command);
        EXPECT_EQ(name.bypassed, c.bypassed) << ToUtf8(c.command);
    }
}

TEST(QuickSubstitution, Lines)
{
    const struct {
        const char16_t* line;
        const char* result;
        bool taken;
    } cases[] = {
        {u"!foo!bar!", "echo bar bar", true},
        {u"!foo!foofoo!", "echo foofoo foofoo", true},
        {u"!name!", "!name!", false},
        {u"!a! !b!", "!a! !b!", false},
        {u"!!x!", "!!x!", false},
        {u"x!foo!bar!", "x!foo!bar!", false},
        {u"!x!", "!x!", false},
    };
    for (const auto& c : cases) {
        CString line(c.line);
        EXPECT_EQ(QuickSubstitution(line, u"echo foo foo"), c.taken) << ToUtf8(c.line);
        EXPECT_EQ(ToUtf8(line), c.result);
    }
}

TEST(StartOptions, TextBehindC)
{
    const struct {
        const char16_t* text;
        const char* commands;
    } cases[] = {
        {u"echo a", "echo a"},
        {u"\"echo hello ^& goodbye & ver\"", "echo hello ^& goodbye & ver"},
        {u"\"set | find \\\"PATH\\\"\"", "set | find \"PATH\""},
        {u"\"dir c:\\\"", "dir c:\\"},
        {u"\"a b\" \"c d\"", "\"a b\" \"c d\""},
        {u"\"\"c:\\a b\\p\" \"x\"\"", "\"c:\\a b\\p\" \"x\""},
        {u"\"echo a\\\\b\"", "echo a\\\\b"},
        {u"\"echo \"x y\"\"", "echo \"x y\""},
        {u"\"echo a|find \"a\"\"", "echo a|find \"a\""},
        {u"\"a b\" c", "\"a b\" c"},
        {u"\"", "\""},
        {u"", ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ToUtf8(UnquoteCommands(c.text, false)), c.commands) << ToUtf8(c.text);
    EXPECT_EQ(ToUtf8(UnquoteCommands(u"\"\"c:\\p\" \\\"x\\\"\"", true)), "\"c:\\p\" \\\"x\\\"");
}

TEST(StartOptions, CommandLines)
{
    const StartOptions all = ParseStartOptions(
        u"\"c:\\a b\\orv.exe\" @\"c:\\my ini\" /LA /X //EvalMax=3 \"//LogName=a b\" /C echo x  ");
    EXPECT_EQ(all.mode, StartOptions::Mode::RunAndExit);
    EXPECT_EQ(ToUtf8(all.commands), "echo x");
    EXPECT_EQ(ToUtf8(all.iniFile), "c:\\my ini");
    EXPECT_EQ(all.localLists, 1u);
    EXPECT_TRUE(all.noInheritance);
    ASSERT_EQ(all.directives.size(), 2u);
    EXPECT_EQ(ToUtf8(all.directives[0]), "//EvalMax=3");
    EXPECT_EQ(ToUtf8(all.directives[1]), "//LogName=a b");

    const StartOptions bare = ParseStartOptions(u"orv dir /w");
    EXPECT_EQ(bare.mode, StartOptions::Mode::RunAndStay);
    EXPECT_EQ(ToUtf8(bare.commands), "dir /w");
    EXPECT_EQ(ToUtf8(ParseStartOptions(u"orv /nonsense").refused), "/nonsense");
    EXPECT_EQ(ParseStartOptions(u"orv").mode, StartOptions::Mode::Interactive);
    EXPECT_EQ(ToUtf8(ParseStartOptions(u"orv /Cver").commands), "ver");
    EXPECT_EQ(ParseStartOptions(u"orv /L /C x").localLists, 15u);
    EXPECT_EQ(ToUtf8(ParseStartOptions(u"orv /d /t:1f /f:on /s /r x").directives.at(0)),
              "//StdColors=Bright White on Blue");
}

} // namespace
