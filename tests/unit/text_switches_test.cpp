#include <gtest/gtest.h>

#include <string>

#include "text/encoding.h"
#include "text/switches.h"

namespace {

TEST(TextSwitches, SingleLetters)
{
    const struct {
        const char16_t* arguments;
        SwitchPlace place;
        std::uint64_t flags; // of "PQS*"
        const char* rest;
        const char* refused;
    } cases[] = {
        {u"/p file", SwitchPlace::Anywhere, 1, "file", ""},
        {u"/P/q file", SwitchPlace::Anywhere, 3, "file", ""},
        {u"file /q", SwitchPlace::Anywhere, 2, "file", ""},
        {u"a /q b", SwitchPlace::Anywhere, 2, "a b", ""},
        {u"file /q", SwitchPlace::Leading, 0, "file /q", ""},
        {u"/p file /q", SwitchPlace::Leading, 1, "file /q", ""},
        {u"/s:3 file", SwitchPlace::Anywhere, 4, "file", ""},
        {u"/px file", SwitchPlace::Anywhere, 0, "/px file", "/px"},
        {u"/z /p file", SwitchPlace::Anywhere, 1, "/z file", "/z"},
        {u"\"/p\" file", SwitchPlace::Anywhere, 0, "\"/p\" file", ""},
        {u"/p /// /q", SwitchPlace::Anywhere, 1, "/q", ""},
        {u"/?", SwitchPlace::Anywhere, 0, "/?", ""},
        {u"/", SwitchPlace::Anywhere, 0, "/", "/"},
        {u"", SwitchPlace::Anywhere, 0, "", ""},
        {u"a/p", SwitchPlace::Anywhere, 0, "a/p", ""},
    };
    for (const auto& test : cases) {
        CString arguments(test.arguments);
        const SwitchRead read = GetSwitches(arguments, u"PQS*", test.place, Syntax());
        EXPECT_EQ(read.flags, test.flags) << ToUtf8(CString(test.arguments));
        EXPECT_EQ(ToUtf8(arguments), test.rest) << ToUtf8(CString(test.arguments));
        EXPECT_EQ(ToUtf8(read.refused), test.refused) << ToUtf8(CString(test.arguments));
    }
}

TEST(TextSwitches, Words)
{
    CString arguments(u"/unbuilt file /UNBUILT /p");
    EXPECT_TRUE(GetMultiCharSwitch(arguments, u"unbuilt", Syntax()));
    EXPECT_EQ(ToUtf8(arguments), "file /p");
    EXPECT_FALSE(GetMultiCharSwitch(arguments, u"unbuilt", Syntax()));
    EXPECT_FALSE(GetMultiCharSwitch(arguments, u"pp", Syntax()));
}

TEST(TextSwitches, WithText)
{
    const struct {
        const char16_t* arguments;
        bool found;
        const char* value;
        const char* rest;
    } cases[] = {
        {u"/n5 file", true, "5", "file"},
        {u"/N:5 file", true, "5", "file"},
        {u"/n=5 file", true, "5", "file"},
        {u"/n\"a b\" file", true, "a b", "file"},
        {u"/n:\"a b\" file", true, "a b", "file"},
        {u"/n:c:/x/y file", true, "c:/x/y", "file"},
        {u"/q/n5 file", true, "5", "/q file"},
        {u"file", false, "", "file"},
        {u"/n", true, "", ""},
    };
    for (const auto& test : cases) {
        CString arguments(test.arguments);
        CString value;
        EXPECT_EQ(GetStringSwitch(arguments, u"n", value, Syntax()), test.found);
        EXPECT_EQ(ToUtf8(value), test.value) << ToUtf8(CString(test.arguments));
        EXPECT_EQ(ToUtf8(arguments), test.rest) << ToUtf8(CString(test.arguments));
    }
}

TEST(TextSwitches, OtherSwitchCharacter)
{
    Syntax syntax;
    syntax.switchChar = u'-';
    CString arguments(u"-p /q file");
    EXPECT_EQ(GetSwitches(arguments, u"PQ", SwitchPlace::Anywhere, syntax).flags, 1u);
    EXPECT_EQ(ToUtf8(arguments), "/q file");
}

} // namespace
