#include "console/history_block.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "text/format.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;

struct TestHistory {
    explicit TestHistory(std::size_t capacity = 4000)
        : units(capacity, u'\0'), block{units.data(), capacity, &control}
    {}

    std::size_t Add(std::vector<CString> lines, EqualLines equalLines = EqualLines::Keep)
    {
        return AppendHistoryLines(block, lines, equalLines);
    }
    std::size_t AddOne(std::u16string_view line) { return Add({CString(line)}); }
    // The lines, each followed by '|'.
    std::u16string Text() const
    {
        std::u16string all;
        for (const CString& line : AllHistoryLines(block.View()))
            all.append(line.view()).append(u"|");
        return all;
    }
    std::size_t PlaceOf(std::u16string_view line) const
    {
        for (std::size_t at = 0; !EntryAt(block.View(), at).empty(); at = NextListEntry(block.View(), at))
            if (EntryAt(block.View(), at) == line)
                return at;
        return npos;
    }

    std::vector<char16_t> units;
    ListControl control{};
    ListBlock block;
};

TEST(HistoryBlock, TreatsEqualLinesAsTold)
{
    struct Row {
        EqualLines equalLines;
        std::vector<CString> added;
        std::size_t count;
        const char16_t* expected; // the list held dir, cd, DIR before
    };
    const Row rows[] = {
        {EqualLines::Keep, {u"dir"}, 1, u"dir|cd|DIR|dir|"},
        {EqualLines::Keep, {u"", u"x", u""}, 1, u"dir|cd|DIR|x|"},
        {EqualLines::KeepFirst, {u"Dir"}, 0, u"dir|cd|DIR|"},
        {EqualLines::KeepFirst, {u"x", u"CD", u"X", u"dir "}, 2, u"dir|cd|DIR|x|dir |"},
        {EqualLines::KeepLast, {u"Dir"}, 1, u"cd|Dir|"},
        {EqualLines::KeepLast, {u"CD"}, 1, u"dir|DIR|CD|"},
        {EqualLines::KeepLast, {u"cd", u"x", u"Cd"}, 2, u"dir|DIR|x|Cd|"},
        {EqualLines::KeepLast, {u"none"}, 1, u"dir|cd|DIR|none|"},
    };
    for (const Row& row : rows) {
        TestHistory history;
        history.Add({u"dir", u"cd", u"DIR"});
        EXPECT_EQ(history.Add(row.added, row.equalLines), row.count);
        EXPECT_EQ(history.Text(), row.expected);
    }
}

TEST(HistoryBlock, EndsLinesAtTheirNul)
{
    TestHistory history;
    EXPECT_EQ(history.Add({CString(std::u16string_view(u"ab\0cd", 5)), CString(1, u'\0')}), 1u);
    EXPECT_EQ(history.Text(), u"ab|");
}

// Room is made while what is used, the line and 256 units more reach the size of the list.
TEST(HistoryBlock, OldestLinesMakeRoom)
{
    constexpr std::size_t capacity = 1000;
    const std::u16string filler(capacity - historySlack - 4 - 3, u'f'); // used then: 4 for "old", its own + 1
    struct Row {
        std::size_t length;
        bool oldStays;
    };
    for (const Row& row : {Row{1, true}, Row{2, false}}) {
        TestHistory history(capacity);
        history.AddOne(u"old");
        history.AddOne(filler);
        history.AddOne(std::u16string(row.length, u'n'));
        EXPECT_EQ(history.PlaceOf(u"old") == 0, row.oldStays) << row.length;
        EXPECT_NE(history.PlaceOf(filler), npos);
    }
    TestHistory history(capacity);
    for (int i = 0; i < 10; ++i)
        history.AddOne(Format(u"line %d", i));
    history.AddOne(std::u16string(700, u'l'));
    EXPECT_EQ(history.Text(),
              u"line 4|line 5|line 6|line 7|line 8|line 9|" + std::u16string(700, u'l') + u"|");
}

TEST(HistoryBlock, TakesLinesUpToItsOwnLength)
{
    constexpr std::size_t capacity = 300;
    const std::size_t longest = capacity - listReserve - listHeadroom - 2;
    TestHistory history(capacity);
    history.AddOne(u"old");
    EXPECT_EQ(history.AddOne(std::u16string(longest + 1, u'x')), 0u);
    EXPECT_EQ(history.Text(), u"old|");
    EXPECT_EQ(history.AddOne(std::u16string(longest, u'x')), 1u);
    EXPECT_EQ(history.Text(), std::u16string(longest, u'x') + u"|");
    EXPECT_FALSE(NeedsRepair(history.block));
}

TEST(HistoryBlock, ManyLinesAtOnceAreAsManyOneByOne)
{
    TestHistory together(2000);
    TestHistory single(2000);
    std::vector<CString> lines;
    for (int i = 0; i < 300; ++i)
        lines.push_back(Format(u"command %0*d", 1 + i * 7 % 40, i));
    EXPECT_EQ(together.Add({u"one", u"two"}), 2u);
    single.Add({u"one", u"two"});
    together.Add(lines);
    for (const CString& line : lines)
        EXPECT_EQ(single.AddOne(line), 1u);
    EXPECT_EQ(together.Text(), single.Text());
}

TEST(HistoryBlock, StepsFromLineToLine)
{
    TestHistory history;
    history.Add({u"first", u"second", u"third"});
    const std::size_t first = 0;
    const std::size_t second = history.PlaceOf(u"second");
    const std::size_t third = history.PlaceOf(u"third");
    struct Row {
        std::size_t from;
        bool wrap;
        std::size_t older;
        std::size_t newer;
    };
    const Row rows[] = {
        {npos, true, third, first},         {npos, false, third, first},
        {first, true, third, second},       {first, false, first, second},
        {second, true, first, third},       {second, false, first, third},
        {third, true, second, first},       {third, false, second, third},
        {second + 2, true, second, third},  {third + 100, true, third, first},
        {third + 100, false, third, third},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(OlderHistoryLine(history.block.View(), row.from, row.wrap), row.older) << row.from;
        EXPECT_EQ(NewerHistoryLine(history.block.View(), row.from, row.wrap), row.newer) << row.from;
    }
    const TestHistory none;
    for (const std::size_t from : {npos, std::size_t{0}}) {
        EXPECT_EQ(OlderHistoryLine(none.block.View(), from, true), npos);
        EXPECT_EQ(NewerHistoryLine(none.block.View(), from, true), npos);
    }
}

TEST(HistoryBlock, RemovesAndChangesLines)
{
    TestHistory history;
    history.Add({u"a", u"b", u"A", u"c", u"a", u"B"});
    EXPECT_FALSE(DeleteHistoryLine(history.block, 1)); // between two lines
    EXPECT_FALSE(DeleteHistoryLine(history.block, 100));
    EXPECT_TRUE(DeleteHistoryLine(history.block, history.PlaceOf(u"c")));
    EXPECT_EQ(history.Text(), u"a|b|A|a|B|");
    RemoveEqualHistoryLines(history.block);
    EXPECT_EQ(history.Text(), u"a|B|");
    EXPECT_FALSE(ReplaceHistoryLine(history.block, 1, u"x"));
    EXPECT_FALSE(ReplaceHistoryLine(history.block, 0, u""));
    EXPECT_FALSE(ReplaceHistoryLine(history.block, 0, std::u16string(history.block.capacity, u'x')));
    EXPECT_TRUE(ReplaceHistoryLine(history.block, 0, u"longer"));
    EXPECT_EQ(history.Text(), u"longer|B|");
    ClearHistoryLines(history.block);
    EXPECT_EQ(history.Text(), u"");
    EXPECT_FALSE(DeleteHistoryLine(history.block, 0));
    ClearHistoryLines(history.block);
    history.AddOne(u"again");
    EXPECT_EQ(history.Text(), u"again|");
}

// A writer that dies in the middle costs at most the line it was adding.
TEST(HistoryBlock, SurvivesAWriterThatDies)
{
    for (int steps = 0; steps < 6; ++steps) {
        TestHistory history;
        history.Add({u"one", u"two"});
        const CString text(std::u16string_view(u"three\0", 6));
        const std::size_t end = EndOfList(history.block.View());
        ListChange change(history.block, end, end, 0, text);
        for (int i = 0; i < steps && change.Step(); ++i) {
        }
        if (NeedsRepair(history.block))
            RepairList(history.block);
        history.AddOne(u"four");
        const std::u16string text1 = history.Text();
        EXPECT_TRUE(text1 == u"one|two|four|" || text1 == u"one|two|three|four|") << steps;
    }
}

} // namespace
