#include <gtest/gtest.h>

#include "batch/do_header.h"
#include "text/encoding.h"

namespace {

TEST(DoHeader, Forms)
{
    struct Case {
        const char16_t* text;
        DoKind kind;
        const char16_t* variable;
        const char16_t* first;
        const char16_t* last;
        const char16_t* step;
        const char16_t* body; // null when there is none
    };
    const Case cases[] = {
        {u"", DoKind::Forever, u"", u"", u"", u"", nullptr},
        {u"forever", DoKind::Forever, u"", u"", u"", u"", nullptr},
        {u"10", DoKind::Times, u"", u"10", u"", u"", nullptr},
        {u"%@len[a b]", DoKind::Times, u"", u"%@len[a b]", u"", u"", nullptr},
        {u"i = 1 to 5", DoKind::Counter, u"i", u"1", u"5", u"", nullptr},
        {u"i=%a TO %@eval[2 + 3] BY -1", DoKind::Counter, u"i", u"%a", u"%@eval[2 + 3]", u"-1", nullptr},
        {u"i = 1 + 1 to 5 * 2 by 1 + 1", DoKind::Counter, u"i", u"1 + 1", u"5 * 2", u"1 + 1", nullptr},
        {u"while %a == 1", DoKind::While, u"", u"%a == 1", u"", u"", nullptr},
        {u"until not exist x", DoKind::Until, u"", u"not exist x", u"", u"", nullptr},
        {u"while (a == 1 .or. b == 2)", DoKind::While, u"", u"(a == 1 .or. b == 2)", u"", u"", nullptr},
        {u"f in *.txt *.c", DoKind::Walk, u"f", u"*.txt *.c", u"", u"", nullptr},
        {u"f in @list.txt", DoKind::Walk, u"f", u"@list.txt", u"", u"", nullptr},
        {u"f in (a b)", DoKind::Walk, u"f", u"(a b)", u"", u"", nullptr},
        {u"3 (echo x)", DoKind::Times, u"", u"3", u"", u"", u"echo x"},
        {u"i = 1 to 3 (\necho (x)\n)", DoKind::Counter, u"i", u"1", u"3", u"", u"\necho (x)\n"},
        {u"while (a == 1 .or. b == 2) (echo)", DoKind::While, u"", u"(a == 1 .or. b == 2)", u"", u"",
         u"echo"},
    };
    for (const Case& one : cases) {
        DoHeader header;
        ASSERT_TRUE(ReadDoHeader(one.text, Syntax(), header)) << ToUtf8(one.text);
        EXPECT_EQ(header.kind, one.kind) << ToUtf8(one.text);
        EXPECT_EQ(ToUtf8(header.variable), ToUtf8(one.variable)) << ToUtf8(one.text);
        EXPECT_EQ(ToUtf8(header.first), ToUtf8(one.first)) << ToUtf8(one.text);
        EXPECT_EQ(ToUtf8(header.last), ToUtf8(one.last)) << ToUtf8(one.text);
        EXPECT_EQ(ToUtf8(header.step), ToUtf8(one.step)) << ToUtf8(one.text);
        EXPECT_EQ(header.hasBody, one.body != nullptr) << ToUtf8(one.text);
        if (one.body) {
            EXPECT_EQ(ToUtf8(header.body), ToUtf8(one.body)) << ToUtf8(one.text);
        }
    }
}

TEST(DoHeader, WhatIsNoDo)
{
    const char16_t* texts[] = {u"while",    u"until", u"i = 1", u"i = 1 to",
                               u"i = to 5", u"f in",  u"10 20", u"i = 1 to 5 by"};
    for (const char16_t* text : texts) {
        DoHeader header;
        EXPECT_FALSE(ReadDoHeader(text, Syntax(), header)) << ToUtf8(text);
    }
}

TEST(DoHeader, LinesOfABody)
{
    const Syntax syntax;
    EXPECT_EQ(ClassifyDoLine(u"  @do 3", syntax), DoLine::Opens);
    EXPECT_EQ(ClassifyDoLine(u"do while (a == b .or. c == d) & x", syntax), DoLine::Opens);
    EXPECT_EQ(ClassifyDoLine(u"do 3 (echo)", syntax), DoLine::Other);
    EXPECT_EQ(ClassifyDoLine(u"do i = 1 to 3 (", syntax), DoLine::Other);
    EXPECT_EQ(ClassifyDoLine(u"document", syntax), DoLine::Other);
    EXPECT_EQ(ClassifyDoLine(u"do.exe", syntax), DoLine::Other);
    EXPECT_EQ(ClassifyDoLine(u"enddo until x == y", syntax), DoLine::Closes);
    EXPECT_EQ(ClassifyDoLine(u"text > x", syntax), DoLine::Text);
    EXPECT_EQ(ClassifyDoLine(u"comment", syntax), DoLine::Comment);
    EXPECT_EQ(ClassifyDoLine(u"", syntax), DoLine::Other);
}

TEST(DoHeader, WordsOfLoops)
{
    std::size_t end = 0;
    EXPECT_EQ(ReadLoopWord(u" leave 2", end), LoopWord::Leave);
    EXPECT_EQ(end, 6u);
    EXPECT_EQ(ReadLoopWord(u"LEAVEFOR", end), LoopWord::LeaveFor);
    EXPECT_EQ(ReadLoopWord(u"iterate&x", end), LoopWord::Iterate);
    EXPECT_EQ(ReadLoopWord(u"enddo", end), LoopWord::EndDo);
    EXPECT_EQ(ReadLoopWord(u"leaves", end), LoopWord::None);
    EXPECT_EQ(ReadLoopWord(u"leave.exe", end), LoopWord::None);
    EXPECT_EQ(ReadLoopWord(u"", end), LoopWord::None);
}

} // namespace
