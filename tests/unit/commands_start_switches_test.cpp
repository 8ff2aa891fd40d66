#include <gtest/gtest.h>

#include <string>

#include "commands/start_switches.h"
#include "lang/errors.h"

namespace {

StartSwitches Read(std::u16string_view text)
{
    StartSwitches read;
    CString place;
    EXPECT_EQ(ReadStartSwitches(text, Syntax(), read, place), 0U)
        << testing::PrintToString(std::u16string(text));
    return read;
}

TEST(StartSwitches, TitleAndCommand)
{
    struct Case {
        const char16_t* text;
        const char16_t* title;
        const char16_t* command;
    };
    const Case cases[] = {
        {u"prog a \"b c\"  /w ", u"", u"prog a \"b c\"  /w"},
        {u"\"my title\" prog", u"my title", u"prog"},
        {u"\"\" \"C:\\a b\\p.exe\" x", u"", u"\"C:\\a b\\p.exe\" x"},
        {u"/wait \"t\" /b prog \"q\"", u"t", u"prog \"q\""},
        {u"\"only\"", u"only", u""},
        {u"\"never closed", u"never closed", u""},
        {u"", u"", u""},
    };
    for (const Case& c : cases) {
        const StartSwitches read = Read(c.text);
        EXPECT_EQ(read.title, c.title);
        EXPECT_EQ(read.command, c.command);
    }
}

TEST(StartSwitches, Flags)
{
    const StartSwitches read = Read(u"/B/WAIT /abovenormal /Min/inv /shared /la /LH /k /i /runas p /low");
    EXPECT_TRUE(read.sameConsole && read.wait && read.originalEnvironment && read.elevated);
    EXPECT_EQ(read.priority, StartPriority::AboveNormal);
    EXPECT_EQ(read.window, StartWindow::Invisible);
    EXPECT_EQ(read.shell, StartShell::Stays);
    EXPECT_EQ(read.shellSwitches, u" /LA /LH");
    EXPECT_EQ(read.command, u"p /low");
}

TEST(StartSwitches, Values)
{
    for (const char16_t* text :
         {u"/D\"C:\\a b\" p", u"/d \"C:\\a b\" p", u"/D:\"C:\\a b\" p", u"/DC:\\\"a b\" p"}) {
        const StartSwitches read = Read(text);
        EXPECT_EQ(read.directory, u"C:\\a b");
        EXPECT_EQ(read.command, u"p");
    }
    const StartSwitches program = Read(u"/b /pgm\"C:\\a b\\p.exe\" /b x");
    EXPECT_EQ(program.program, u"C:\\a b\\p.exe");
    EXPECT_EQ(program.command, u"/b x");
    const StartSwitches numbers = Read(u"/affinity 0x1F /NODE 1 /pos=10,-20,300,400 /size=80,25 p");
    EXPECT_EQ(numbers.affinity, 0x1FU);
    EXPECT_EQ(numbers.node, 1U);
    ASSERT_TRUE(numbers.place && numbers.size);
    EXPECT_EQ(numbers.place->y, -20);
    EXPECT_EQ(numbers.place->height, 400);
    EXPECT_EQ(numbers.size->width, 80);
    EXPECT_EQ(Read(u"/affinity f p").affinity, 15U);
    EXPECT_EQ(Read(u"/POS=1,2 p").place->width, 0);
}

TEST(StartSwitches, Refusals)
{
    struct Case {
        const char16_t* text;
        const char16_t* place;
    };
    const Case cases[] = {
        {u"/x p", u"/x"},
        {u"/waits p", u"/waits"},
        {u"/ p", u"/"},
        {u"/affinity 0 p", u"/affinity"},
        {u"/node x p", u"/node"},
        {u"/pos=1 p", u"/pos=1"},
        {u"/pos=1,2,3,-4 p", u"/pos=1"},
        {u"/size=0,5 p", u"/size=0"},
        {u"/d", u"/d"},
    };
    for (const Case& c : cases) {
        StartSwitches read;
        CString place;
        EXPECT_EQ(ReadStartSwitches(c.text, Syntax(), read, place), errors::invalidSwitch);
        EXPECT_EQ(place, c.place);
    }
}

} // namespace
