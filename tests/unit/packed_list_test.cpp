#include "expand/packed_list.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

// A list in memory of its own, as a process holds one.
struct TestList {
    explicit TestList(std::size_t capacity) : units(capacity, u'\0'), block{units.data(), capacity, &control}
    {}

    bool Define(const char16_t* text, NameMatch match = NameMatch::WholeName)
    {
        CString entry(text);
        EXPECT_TRUE(NormalizeEntry(entry, EntryKind::ListEntry));
        return UpdateList(block, entry, match);
    }
    // All entries, each followed by '|'.
    std::u16string Text() const
    {
        std::u16string all;
        for (std::size_t at = 0; !EntryAt(block.View(), at).empty(); at = NextListEntry(block.View(), at))
            all.append(EntryAt(block.View(), at)).append(u"|");
        return all;
    }
    std::u16string Find(const char16_t* name, NameMatch match = NameMatch::Abbreviated) const
    {
        const std::size_t at = FindListEntry(block.View(), name, match);
        return at == std::u16string_view::npos ? u"(none)"
                                               : std::u16string(EntryValue(EntryAt(block.View(), at)));
    }

    std::vector<char16_t> units;
    ListControl control{};
    ListBlock block;
};

TEST(PackedList, BringsDefinitionsIntoTheirForm)
{
    struct Row {
        const char16_t* text;
        EntryKind kind;
        const char16_t* expected; // null: refused
    };
    const Row rows[] = {
        {u"d dir /w", EntryKind::ListEntry, u"d=dir /w"},
        {u"d   =   dir", EntryKind::ListEntry, u"d=dir"},
        {u"d=dir", EntryKind::ListEntry, u"d=dir"},
        {u"  d\t\tdir  ", EntryKind::ListEntry, u"d=dir  "},
        {u"d a=b", EntryKind::ListEntry, u"d=a=b"},
        {u"d=", EntryKind::ListEntry, u"d="},
        {u"d", EntryKind::ListEntry, u"d="},
        {u"d=`dir %1`", EntryKind::ListEntry, u"d=dir %1"},
        {u"d= ` x y`", EntryKind::ListEntry, u"d= x y"},
        {u"d=`dir", EntryKind::ListEntry, u"d=dir"},
        {u"d=dir`", EntryKind::ListEntry, u"d=dir`"},
        {u"d=`", EntryKind::ListEntry, u"d="},
        {u"d=``", EntryKind::ListEntry, u"d="},
        {u"", EntryKind::ListEntry, nullptr},
        {u"  \t", EntryKind::ListEntry, nullptr},
        {u"=x", EntryKind::ListEntry, nullptr},
        {u"=C:=C:\\x", EntryKind::Environment, u"=C:=C:\\x"},
        {u"=C:", EntryKind::Environment, nullptr},
        {u"=ExitCode=1", EntryKind::Environment, nullptr},
        {u"my var= a ", EntryKind::Environment, u"my var= a "},
        {u"v=`x`", EntryKind::Environment, u"v=`x`"},
        {u"v", EntryKind::Environment, u"v="},
        {u"", EntryKind::Environment, nullptr},
        {u"a[1] = `x`", EntryKind::ArrayElement, u"a[1]= `x`"},
        {u"a[1] x", EntryKind::ArrayElement, u"a[1]=x"},
    };
    for (const Row& row : rows) {
        CString entry(row.text);
        const bool accepted = NormalizeEntry(entry, row.kind);
        EXPECT_EQ(accepted, row.expected != nullptr) << CString(row.text).size();
        EXPECT_TRUE(!accepted || std::u16string(entry.view()) == row.expected);
    }
    CString cut(std::u16string_view(u"a=b\0c", 5));
    ASSERT_TRUE(NormalizeEntry(cut, EntryKind::Environment));
    EXPECT_EQ(cut, u"a=b");
}

TEST(PackedList, FindsAbbreviations)
{
    TestList list(200);
    ASSERT_TRUE(list.Define(u"wh*ere=one"));
    ASSERT_TRUE(list.Define(u"whole=two"));
    ASSERT_TRUE(list.Define(u"w=three"));
    const std::pair<const char16_t*, const char16_t*> rows[] = {
        {u"wh", u"one"},        {u"WHE", u"one"},          {u"wher", u"one"},   {u"where", u"one"},
        {u"wheres", u"(none)"}, {u"w", u"three"},          {u"who", u"(none)"}, {u"whole", u"two"},
        {u"wh*ere", u"one"},    {u"whe=anything", u"one"}, {u"", u"(none)"},    {u"=", u"(none)"},
    };
    for (const auto& [name, value] : rows)
        EXPECT_EQ(list.Find(name), value);
    EXPECT_EQ(list.Find(u"wh", NameMatch::Plain), u"(none)");
    EXPECT_EQ(list.Find(u"wh*ere", NameMatch::Plain), u"one");
}

TEST(PackedList, ReplacesInPlace)
{
    TestList list(200);
    for (const char16_t* text : {u"a=1", u"b=2", u"c=3"})
        ASSERT_TRUE(list.Define(text));
    ASSERT_TRUE(list.Define(u"B=a much longer value"));
    EXPECT_EQ(list.Text(), u"a=1|b=a much longer value|c=3|");
    ASSERT_TRUE(list.Define(u"b=x"));
    EXPECT_EQ(list.Text(), u"a=1|b=x|c=3|");
    ASSERT_TRUE(list.Define(u"b=y"));
    EXPECT_EQ(list.Text(), u"a=1|b=y|c=3|");
    ASSERT_TRUE(list.Define(u"a="));
    EXPECT_EQ(list.Text(), u"b=y|c=3|");
    ASSERT_TRUE(list.Define(u"nothing="));
    EXPECT_EQ(list.Text(), u"b=y|c=3|");
    EXPECT_EQ(GetListSize(list.block.View()), 8 * 2 + 4u);
    EXPECT_EQ(list.control.changes.load() % 2, 0u);
}

TEST(PackedList, ChangesByWholeNamesOnly)
{
    TestList list(200);
    ASSERT_TRUE(list.Define(u"ab*cd=1"));
    ASSERT_TRUE(list.Define(u"abc=2"));
    EXPECT_EQ(list.Text(), u"ab*cd=1|abc=2|");
    ASSERT_TRUE(list.Define(u"abc="));
    EXPECT_EQ(list.Text(), u"ab*cd=1|");
    ASSERT_TRUE(list.Define(u"abcd=3"));
    EXPECT_EQ(list.Text(), u"ab*cd=3|");
    ASSERT_TRUE(list.Define(u"abc*d=4"));
    EXPECT_EQ(list.Text(), u"abc*d=4|");
}

TEST(PackedList, RefusesWhatDoesNotFitAndLeavesTheListAlone)
{
    TestList list(60);                                            // 44 usable
    ASSERT_TRUE(list.Define(u"a=12345678901234567890123456789")); // 32 units: 32 + 8 < 44
    const std::u16string before = list.Text();
    EXPECT_FALSE(list.Define(u"b=23"));
    EXPECT_TRUE(list.Define(u"b=2") == false && list.Text() == before);
    EXPECT_FALSE(list.Define(u"a=12345678901234567890123456789____"));
    EXPECT_EQ(list.Text(), before);
    EXPECT_TRUE(list.Define(u"a=12345678901234567890123456789_"));
    EXPECT_TRUE(list.Define(u"a="));
    EXPECT_TRUE(list.Define(u"b=23"));
}

// How a change of the list below goes and what may be left of it.
struct Interrupted {
    const char16_t* name;   // of the entry that changes
    const char16_t* text;   // what takes the place of its value, "" to delete the entry
    std::u16string after;   // the completed change
    std::u16string dropped; // without the entry
    bool grows;
};

// Makes the change, stopped after `steps` steps; `unwritten` loses the record of the last one, as if its
// writer had been stopped right behind it. True when the change came to its end.
bool Interrupt(TestList& list, const Interrupted& row, int steps, bool unwritten)
{
    const std::size_t found = FindListEntry(list.block.View(), row.name, NameMatch::Plain);
    const bool isNew = found == std::u16string_view::npos;
    const std::size_t start = isNew ? EndOfList(list.block.View()) : found;
    const std::size_t entryLength = EntryAt(list.block.View(), start).size() + 1;
    const std::size_t kept = !isNew && *row.text ? 2 : 0; // the name and its "="
    CString text(isNew ? CString(row.name) + u"=" + row.text : CString(row.text));
    if (!text.empty())
        text.Append(u'\0');
    ListChange change(list.block, start, start + kept, isNew ? 0 : entryLength - kept, text);
    for (int step = 0; step < steps; ++step) {
        const std::uint32_t progress = list.control.progress;
        const std::uint32_t changes = list.control.changes;
        if (!change.Step())
            return true;
        if (unwritten && step == steps - 1) {
            list.control.progress = progress;
            list.control.changes = changes;
        }
    }
    return false;
}

TEST(PackedList, RepairsWhatAWriterLeft)
{
    const Interrupted rows[] = {
        {u"b", u"a much longer value than before", u"a=1|b=a much longer value than before|c=333|d=4|",
         u"a=1|c=333|d=4|", true},
        {u"b", u"22222x", u"a=1|b=22222x|c=333|d=4|", u"a=1|c=333|d=4|", true},
        {u"b", u"2", u"a=1|b=2|c=333|d=4|", u"a=1|c=333|d=4|", false},
        {u"b", u"xxxxx", u"a=1|b=xxxxx|c=333|d=4|", u"a=1|c=333|d=4|", false},
        {u"b", u"", u"a=1|c=333|d=4|", u"a=1|c=333|d=4|", false},
        {u"new", u"value", u"a=1|b=22222|c=333|d=4|new=value|", u"a=1|b=22222|c=333|d=4|", true},
    };
    const std::u16string before = u"a=1|b=22222|c=333|d=4|";
    for (const Interrupted& row : rows) {
        for (const bool unwritten : {false, true}) {
            bool wasUndone = false;
            for (int steps = 0;; ++steps) {
                ASSERT_LT(steps, 200);
                TestList list(200);
                for (const char16_t* text : {u"a=1", u"b=22222", u"c=333", u"d=4"})
                    ASSERT_TRUE(list.Define(text));
                const bool completed = Interrupt(list, row, steps, unwritten);
                RepairList(list.block);
                const std::u16string now = list.Text();
                EXPECT_TRUE(now == row.after || (!completed && (now == row.dropped || now == before)));
                wasUndone = wasUndone || now == before;
                EXPECT_FALSE(NeedsRepair(list.block));
                EXPECT_TRUE(list.Define(u"later=1"));
                EXPECT_EQ(list.Text(), now + u"later=1|");
                if (completed)
                    break;
            }
            // Making room is the only step that can be taken back.
            EXPECT_EQ(wasUndone, row.grows);
        }
    }
}

TEST(PackedList, SurvivesForeignTextInItsBlock)
{
    TestList list(64);
    std::fill(list.units.begin(), list.units.end(), u'x');
    list.control.progress = 0xFFFFFFFF;
    list.control.at = 0xFFFFFF00;
    list.control.changes = 7;
    EXPECT_EQ(list.Find(u"x"), u"(none)");
    EXPECT_EQ(EndOfList(list.block.View()), 0u);
    EXPECT_TRUE(NeedsRepair(list.block));
    RepairList(list.block);
    EXPECT_FALSE(IsListChanging(list.block));
    EXPECT_LT(EndOfList(list.block.View()), 48u);
    EXPECT_FALSE(list.Define(u"a=1")); // no room, but nothing breaks
    EXPECT_TRUE(DeleteListEntry(list.block, 0));
    EXPECT_TRUE(list.Define(u"a=1"));
    EXPECT_EQ(list.Text(), u"a=1|");
}

} // namespace
