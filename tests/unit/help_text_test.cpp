#include "commands/help_text.h"
#include "commands/reference_text.h"

#include <gtest/gtest.h>

#include "text/encoding.h"

namespace {

const CommandHelp sample = {
    u"Shows things one after the other.",
    u"SHOW [/A] thing",
    u"/A  all of them, however many there may be\nMore about it.",
    u"show this",
};

TEST(HelpText, LinesStayWholeWithoutAWidth)
{
    EXPECT_EQ(ToUtf8(HelpText(u"SHOW", sample, 0)), "SHOW: Shows things one after the other.\r\n"
                                                    "\r\nUsage\r\n"
                                                    "  SHOW [/A] thing\r\n"
                                                    "\r\nDetails\r\n"
                                                    "  /A  all of them, however many there may be\r\n"
                                                    "  More about it.\r\n"
                                                    "\r\nExamples\r\n"
                                                    "  show this\r\n");
}

TEST(HelpText, WrappedWordsHangBelowTheirColumn)
{
    EXPECT_EQ(ToUtf8(HelpText(u"SHOW", sample, 24)), "SHOW: Shows things one\r\n"
                                                     "after the other.\r\n"
                                                     "\r\nUsage\r\n"
                                                     "  SHOW [/A] thing\r\n"
                                                     "\r\nDetails\r\n"
                                                     "  /A  all of them,\r\n"
                                                     "      however many there\r\n"
                                                     "      may be\r\n"
                                                     "  More about it.\r\n"
                                                     "\r\nExamples\r\n"
                                                     "  show this\r\n");
}

TEST(HelpText, EmptySectionsAreLeftOut)
{
    const CommandHelp bare = {u"Does it.", u"BARE", u"", u""};
    EXPECT_EQ(ToUtf8(HelpText(u"BARE", bare, 0)), "BARE: Does it.\r\n\r\nUsage\r\n  BARE\r\n");
}

TEST(HelpText, LinesBreakByTheCellsOfTheirWordsAndWordsThatDoNotFitStayWhole)
{
    const CommandHelp wide = {u"\u65e5\u672c\u8a9e \u8a71 x yz", u"AVERYLONGWORDWITHOUTANYBLANKINIT and more",
                              u"", u""};
    EXPECT_EQ(HelpText(u"WORDS", wide, 20),
              u"WORDS: \u65e5\u672c\u8a9e \u8a71 x\r\nyz\r\n"
              u"\r\nUsage\r\n  AVERYLONGWORDWITHOUTANYBLANKINIT\r\n  and more\r\n");
}

TEST(ReferenceText, ASectionEndsAtTheNextHeadingOutsideItsExamples)
{
    constexpr std::u16string_view page =
        u"# Texts\n\n## @one, @two\n\n`%@one[text]`\n\nDoes `this`. Reads on\nhere.\n\n"
        u"~~~orv\n> echo %@one[## @three]\n## @three of {{\\d+}} left\n~~~\n\n## @three\nLast.";
    const std::u16string_view section = ReferenceSection(page, u"@TWO");
    EXPECT_EQ(ToUtf8(ReferenceSummary(section)), "Does this");
    EXPECT_EQ(ToUtf8(ReferenceText(u"@two", section, 0)), "@two\r\n"
                                                          "\r\nUsage\r\n  %@one[text]\r\n"
                                                          "\r\nDetails\r\n  Does this. Reads on here.\r\n"
                                                          "\r\nExamples\r\n  > echo %@one[## @three]\r\n"
                                                          "  ## @three of ... left\r\n");
    EXPECT_EQ(ReferenceSection(page, u"@three"), u"Last.");
    EXPECT_EQ(ReferenceSection(page, u"@on"), u"");
}

} // namespace
