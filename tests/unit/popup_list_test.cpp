#include <gtest/gtest.h>

#include "console/popup_list.h"
#include "fake_console.h"

namespace {

PopupRequest Fruit()
{
    PopupRequest request;
    request.title = u"Fruit";
    request.lines = {u"apple", u"green pear", u"green plum", u"grape\tred", u"fig"};
    request.place = {1, 2, 5, 30};
    request.mayDelete = request.mayEdit = request.mayChange = true;
    return request;
}

// Draws the list once more before the console is gone, and tells rows 1 to 5.
std::u16string Screen(std::initializer_list<const char16_t*> keys, PopupRequest request = Fruit())
{
    class Watching : public FakeConsole {
    public:
        using FakeConsole::FakeConsole;
        ConsoleEvent Wait(std::optional<std::uint64_t> time) override
        {
            if (events.empty())
                for (int row = 1; row <= 5; ++row)
                    seen += std::u16string(Row(row).view()) + u"\n";
            return FakeConsole::Wait(time);
        }
        std::u16string seen;
    } console(40, 8);
    for (const char16_t* key : keys)
        console.Press(key);
    RunPopupList(console, std::move(request));
    return console.seen;
}

} // namespace

TEST(PopupList, ShowsItsLinesAndPutsTheScreenBack)
{
    EXPECT_EQ(Screen({}),
              u"  ┌ Fruit ───────────────┐\n  │apple                 │\n  │green pear            │\n"
              u"  │green plum            │\n  └───────────────── 1/5 ┘\n");
    EXPECT_EQ(Screen({u"End"}),
              u"  ┌ Fruit ───────────────┐\n  │green plum            │\n  │grape·red             │\n"
              u"  │fig                   │\n  └───────────────── 5/5 ┘\n");
    EXPECT_EQ(Screen({u"G", u"R", u"Space", u"P", u"L"}),
              u"  ┌ Fruit ───────────────┐\n  │green plum            │\n  │                      │\n"
              u"  │                      │\n  └ gr pl ────────── 1/1 ┘\n");
    // Something of the longest line stays in view.
    EXPECT_EQ(Screen({u"Right", u"Right", u"Right"}),
              u"  ┌ Fruit ───────────────┐\n  │                      │\n  │ar                    │\n"
              u"  │um                    │\n  └───────────────── 1/5 ┘\n");
    PopupRequest names = Fruit();
    names.names = true;
    names.chosen = 4;
    EXPECT_EQ(Screen({u"G"}, names),
              u"  ┌ Fruit ───────────────┐\n  │green pear            │\n  │green plum            │\n"
              u"  │grape·red             │\n  └ g ────────────── 1/4 ┘\n");
    PopupRequest notes = Fruit();
    notes.notes = {u"red", u"", u"sweet", u"", u""};
    EXPECT_EQ(Screen({}, notes), u"  ┌ Fruit ───────────────┐\n  │apple       red       │\n"
                                 u"  │green pear            │\n  │green plum  sweet     │\n"
                                 u"  └───────────────── 1/5 ┘\n");
    PopupRequest keys = Fruit(); // those that fit whole
    keys.footer = u"Space marks, Enter runs, Esc leaves";
    EXPECT_TRUE(Screen({}, keys).ends_with(u"  └ Space marks ────────── 1/5 ┘\n"));
    // What was found among its neighbours, then the next one above; facts do not move with the text.
    PopupRequest facts = Fruit();
    facts.keys |= key_category::extendedHistory;
    facts.filter = u"GRE";
    facts.chosen = 4;
    facts.lead = {4, [](std::size_t line) { return CString(1, static_cast<char16_t>(u'0' + line)); }};
    facts.places = {u"", u"", u"", u"", u"sea-green"};
    EXPECT_EQ(Screen({u"Ctrl-F", u"Ctrl-F", u"Right"}, facts),
              u"  ┌ Fruit ───────────────┐\n  │2   um                │\n  │3   d                 │\n"
              u"  │4                     │\n  └ /GRE ─────────── 3/5 ┘\n");
    FakeConsole console(40, 8);
    console.WriteRun({2, 0}, u"a line that is covered by the window", 7);
    console.cursor = {3, 4};
    console.cursorHeight = 15;
    RunPopupList(console, Fruit());
    EXPECT_EQ(console.Row(2), u"a line that is covered by the window");
    EXPECT_EQ(console.Color(2, 5), 7u);
    EXPECT_EQ(console.cursor, (ScreenPlace{3, 4}));
    EXPECT_EQ(console.cursorHeight, 15);
    // Where there is room it keeps off the row of the cursor.
    for (const int row : {2, 5, 6}) {
        FakeConsole typed(40, 8);
        typed.WriteRun({row, 0}, u"type a file of fruit", 7);
        typed.onWait = [&] { EXPECT_EQ(typed.Row(row), u"type a file of fruit"); };
        PopupRequest request = Fruit();
        request.place.rows = row == 6 ? 7 : request.place.rows; // it gets lower for that
        RunPopupList(typed, request);
    }
}

TEST(PopupList, AnswersWhatWasPickedDeletedAndEdited)
{
    FakeConsole console(40, 8);
    for (const char16_t* key :
         {u"Ctrl-D", u"Down", u"F2", u"End", u"S", u"Enter", u"P", u"L", u"Backspace", u"Ctrl-Enter"})
        console.Press(key);
    const PopupResult result = RunPopupList(console, Fruit());
    EXPECT_EQ(result.action, PopupAction::ToCommandLine);
    EXPECT_EQ(result.line, 2u);
    EXPECT_EQ(result.text, u"green plums");
    EXPECT_EQ(result.deleted, std::vector<std::size_t>{0});
    ASSERT_EQ(result.edited.size(), 1u);
    EXPECT_EQ(result.edited[0].second, u"green plums");

    FakeConsole mouse(40, 8);
    mouse.Push(ConsoleEvent{ConsoleEventKind::Press, {}, {MouseButton::Left, true, 5, 3}, 0});
    EXPECT_EQ(RunPopupList(mouse, Fruit()).text, u"green pear");
    FakeConsole outside(40, 8);
    outside.Push(ConsoleEvent{ConsoleEventKind::Press, {}, {MouseButton::Left, true, 39, 7}, 0});
    EXPECT_EQ(RunPopupList(outside, Fruit()).action, PopupAction::Cancelled);
    FakeConsole low(40, 2);
    EXPECT_EQ(RunPopupList(low, Fruit()).action, PopupAction::Cancelled);
    EXPECT_EQ(low.beeps, 1u) << "nothing to be seen";
}

TEST(PopupList, LeavesTheScreenBeforeABreakIsTold)
{
    FakeConsole console(40, 8);
    console.WriteRun({2, 0}, u"a line that is covered by the window", 7);
    std::vector<CString> told;
    console.beforeBreak = [&] { told.push_back(console.Row(2)); };
    console.Press(u"Ctrl-C");
    EXPECT_THROW(RunPopupList(console, Fruit()), FakeConsole::Broken);
    EXPECT_EQ(told, std::vector<CString>{u"a line that is covered by the window"});

    console.breaksOff = true;
    for (const char16_t* key : {u"F", u"Ctrl-C", u"Enter"})
        console.Press(key);
    EXPECT_EQ(RunPopupList(console, Fruit()).text, u"fig");
    EXPECT_EQ(told.size(), 2u);
}
