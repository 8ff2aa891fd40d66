// The line editor on a console in memory: keys in, line and screen out.
#include <gtest/gtest.h>

#include "console/line_editor.h"
#include "fake_console.h"
#include "fake_editor_world.h"
#include "text/encoding.h"

namespace {

// "abc<Left><Ctrl-Del>": characters and names of keys; "<<" is a "<".
void PressAll(FakeConsole& console, std::u16string_view keys)
{
    while (!keys.empty()) {
        const std::size_t end = keys.front() == u'<' ? keys.find(u'>') : keys.npos;
        if (end == keys.npos || keys.starts_with(u"<<")) {
            console.Type(keys.substr(0, 1));
            keys.remove_prefix(keys.starts_with(u"<<") ? 2 : 1);
            continue;
        }
        console.Press(keys.substr(1, end - 1));
        keys.remove_prefix(end + 1);
    }
}

struct EditedLine {
    const char16_t* keys;
    const char16_t* line; // "|" stands where the cursor is before Enter
};

class Editing : public testing::Test {
protected:
    EditorAnswer Edit(std::u16string_view keys)
    {
        EditorRequest request;
        request.prompt = u">";
        return Edit(keys, request);
    }
    EditorAnswer Edit(std::u16string_view keys, const EditorRequest& request)
    {
        PressAll(console, keys);
        return LineEditor(console, world, settings).Read(request);
    }

    FakeConsole console{40, 6};
    FakeEditorWorld world;
    EditorSettings settings;
};

// Where the cursor is cannot be seen behind Enter: a "|" is typed there.
TEST_F(Editing, KeysMakeLines)
{
    world.history = {u"dir *.c", u"copy a b", u"Dir /w", u"echo \"x y\" z"};
    world.directories = {u"C:\\one", u"C:\\two words"};
    const EditedLine table[] = {
        {u"abc<Left><Left>", u"a|bc"},
        {u"abc<Home>", u"|abc"},
        {u"one two three<Ctrl-Left><Ctrl-Left>", u"one |two three"},
        {u"one two<Home><Ctrl-Right>", u"one |two"},
        {u"a \"b c\" d<Ctrl-Alt-Left><Ctrl-Alt-Left>", u"a |\"b c\" d"},
        {u"a \"b c\" d<Home><Right><Ctrl-Alt-Right>", u"a \"b c\"| d"},
        {u"abc<Backspace><Left><Del>", u"a|"},
        {u"one two three<Ctrl-Left><Ctrl-L>", u"one |three"},
        {u"one two three<Home><Ctrl-R>", u"|two three"},
        {u"one \"t w\" x<Left><Ctrl-Shift-L>", u"one |x"},
        {u"one two<Home><Ctrl-Shift-R>", u"|two"},
        {u"one two<Left><Left><Ctrl-Home>", u"|wo"},
        {u"one two<Left><Left><Ctrl-End>", u"one t|"},
        {u"one<Esc>two", u"two|"},
        {u"abcd<Shift-Left><Shift-Left>x", u"abx|"},
        {u"ab cd<Ctrl-Shift-Left><Ctrl-Ins><End><Shift-Ins><Shift-Ins>", u"ab cdcdcd|"},
        {u"abc<Shift-Left><Ctrl-C><End><Shift-Ins>", u"abcc|"},
        {u"abc<Home><Ins>xy<Ins>z", u"xyz|c"},
        {u"one two<Ctrl-Shift-Z>", u"one |"},
        {u"one two<Ctrl-Shift-Z><Ctrl-Shift-Z><Ctrl-Shift-Y>", u"one |"},
        {u"one<Esc><Ctrl-Shift-Z>", u"one|"},
        // History: all lines, those that begin as typed, and back to what was typed.
        {u"<Up><Up>", u"Dir /w|"},
        {u"dir<Up><Up>", u"dir *.c|"},
        {u"dir<Up><Up><Up>", u"Dir /w|"},
        {u"dir<Up><Down>", u"dir|"},
        {u"no such<Up>", u"no such|"},
        {u"<Up><Ctrl-E>x", u"x|"},
        {u"ec<F3>", u"echo \"x y\" z|"},
        {u"<Ctrl-1>", u"\"x y\"|"},
        {u"<Ctrl-B><Ctrl-B>", u"/w|"},
        {u"cd <Ctrl-Up><Ctrl-Up>", u"cd C:\\one|"},
        {u"cd <Ctrl-Up><Ctrl-Up><Ctrl-Down>", u"cd \"C:\\two words\"|"},
        {u"<Ctrl-Up><Ctrl-B><Ctrl-Up>", u"\"C:\\two words\"z\"C:\\two words\"|"},
        // Completion.
        {u"type al<Tab>", u"type alpha.txt|"},
        {u"type al<Tab><Tab>", u"type alps.txt|"},
        {u"type al<Tab><Tab><Shift-Tab>", u"type alpha.txt|"},
        {u"type al<Tab><F10>", u"type alpha.txt alps.txt|"},
        {u"type al<Tab><Ctrl-Shift-Tab>", u"type al|"},
        {u"type b<Tab><F12>", u"type beta.txt beta.txt|"},
        {u"type no<Tab>", u"type no|"},
        // What stands for something else.
        {u"ll a<Ctrl-W>", u"dir /q a|"},
        {u"set y=%x%<Ctrl-X>", u"set y=42|"},
        {u"copy file<Ctrl-T>", u"copy file file|"},
        {u"<Shift-F2> b", u"dir /w b|"},
        {u"a\u0301b<Left><Left>", u"|a\u0301b"}, // a mark belongs to its letter
        {u"x\U0001F600<Backspace>", u"x|"},      // a pair of units is one character
    };
    for (const EditedLine& row : table) {
        settings = {};
        CString keys(row.keys);
        keys.Append(u"|<Enter>");
        EXPECT_EQ(Edit(keys).line, row.line) << "row " << (&row - table);
        EXPECT_TRUE(console.events.empty());
        console.clipboard.Clear();
    }
}

TEST_F(Editing, APromptThatFillsItsRowStays)
{
    console.WriteRun({5, 0}, CString(40, u'p'), 7);
    EditorRequest request;
    request.clearsRow = false;
    EXPECT_EQ(Edit(u"typed<Enter>", request).line, u"typed");
    EXPECT_EQ(console.Row(3), CString(40, u'p'));
    EXPECT_EQ(console.Row(4), u"typed");
}

TEST_F(Editing, TheScreenDoesNotScrollForASuggestion)
{
    world.history = {CString(60, u'y')};
    settings.syntaxColors = true;
    console.WriteRun({0, 0}, u"above", 7);
    console.cursor = {4, 0};
    const CString row(40, u'y');
    std::vector<CString> shown;
    console.onWait = [&] { shown.push_back(console.Row(5)); };
    Edit(u"y<Enter>");
    EXPECT_EQ(console.Row(0), u"above");
    EXPECT_EQ(shown[1], CString(21, u'y'));
    shown.clear();
    console.cursor = {5, 0};
    Edit(u"y<End>");
    EXPECT_EQ(console.Row(4).view().substr(1), row.view().substr(1));
    EXPECT_EQ(shown[1].view().substr(1), row.view().substr(1));
}

TEST_F(Editing, HistorySettingsAndChanges)
{
    world.history = {u"one", u"two", u"One"};
    settings.histCase = true;
    EXPECT_EQ(Edit(u"o<Up><Enter>").line, u"one");
    settings.histWrap = false;
    EXPECT_EQ(Edit(u"<Up><Up><Up><Up><Up><Enter>").line, u"one");
    EXPECT_TRUE(Edit(u"<Up><Enter>").recalled);
    EXPECT_FALSE(Edit(u"<Up>x<Enter>").recalled);
    EditorRequest behind;
    behind.ranPlace = Edit(u"<Up><Up><Enter>").place;
    behind.ranLine = world.history[behind.ranPlace];
    EXPECT_EQ(Edit(u"<Down><Enter>", behind).line, world.history.back());
    Edit(u"<Up><Up><Ctrl-D><Enter>");
    EXPECT_EQ(world.history, (std::vector<CString>{u"one", u"One"}));
    EXPECT_EQ(Edit(u"kept<Ctrl-K>run<Enter>").line, u"run");
    EXPECT_EQ(world.history.back(), u"kept");
    // The window begins with what has been typed for a filter, and its changes reach the history.
    world.pick = LinePick{1, {}, false, {}, {{1, u"  Two"}}};
    settings.maintainIndent = false;
    EXPECT_EQ(Edit(u"o<PgUp>").line, u"Two");
    EXPECT_EQ(world.pickFilter, u"o");
    EXPECT_EQ(world.history, (std::vector<CString>{u"one", u"  Two", u"kept"}));
    EXPECT_EQ(Edit(u"<Up><Up><Enter>").line, u"Two");
    world.pick = LinePick{0, u"three", true, {}, {}};
    EXPECT_EQ(Edit(u"<Ctrl-Shift-PgUp>s<Enter>").line, u"threes");
    settings.appendCommandLines = true;
    console.drawsBetweenKeys = false;
    EXPECT_EQ(Edit(u"x <PgUp><Enter>").line, u"x one");
    EXPECT_EQ(world.pickColumn, 3) << "the line is shown before the window";
    console.drawsBetweenKeys = true;
    EXPECT_EQ(world.pickFilter, u"");
    world.pick.reset();
    EXPECT_EQ(Edit(u"x<Ctrl-Shift-PgUp><Enter>").line, u"x");
    const EditorAnswer silent = Edit(u"half<Left><Shift-F3>");
    EXPECT_TRUE(silent.silent);
    EXPECT_EQ(silent.line, u"cls");
    EXPECT_EQ(silent.left, u"half");
    EXPECT_EQ(silent.leftCursor, 3u);
}

TEST_F(Editing, LimitsAndEnds)
{
    EditorRequest request;
    request.longest = 3;
    EXPECT_EQ(Edit(u"abcde<Enter>", request).line, u"abc");
    EXPECT_EQ(console.beeps, 2u);
    request.longest = 6;
    EXPECT_EQ(Edit(u"ab<Ctrl-T><Ctrl-T><Enter>", request).line, u"ab ab");
    EXPECT_EQ(console.beeps, 3u);
    request.longest = 3;
    request.accepted = {u"1", u"2"};
    EXPECT_EQ(Edit(u"1x2<Enter>", request).line, u"12");
    EXPECT_EQ(Edit(u"abc<Ctrl-C>").outcome, EditorOutcome::Break);
    EXPECT_EQ(Edit(u"abc").outcome, EditorOutcome::Ended);
    request = {};
    request.hidden = true;
    console.Resize(40, 6);
    console.cursor = {0, 0};
    EXPECT_EQ(Edit(u"secret<Enter>", request).line, u"secret");
    EXPECT_EQ(console.Row(0), u"******");
}

// Enter inside pasted text waits for the rest; typed ahead it runs the first line.
TEST_F(Editing, PastedLinesComeTogether)
{
    console.quietKeys = 1;
    console.drawsBetweenKeys = false;
    EXPECT_EQ(Edit(u"one<Enter>two<Enter>thr").outcome, EditorOutcome::Ended);
    console.quietKeys = 1;
    EXPECT_EQ(Edit(u"one<Enter>two<Enter>").line, u"one\ntwo");
    EXPECT_EQ(Edit(u"one<Enter>two<Enter>").line, u"one");
    EXPECT_EQ(Edit(u"").line, u"two");
    console.quietKeys = 1;
    EXPECT_EQ(Edit(u"one<Enter><Ctrl-J><Tab>two<Ctrl-Enter><Ctrl-Enter>three<Enter>").line,
              u"one\n\ttwo\n\nthree");
    console.quietKeys = 1;
    EXPECT_EQ(Edit(u"<Enter>a<Enter>b c d<Enter>").line, u"\na\nb c d"); // however it begins
    // Tabs among it are no wishes for names; those behind it are, and in what a slow line hands over
    // together.
    for (const auto& [keys, line] :
         {std::pair{u"<Tab><Tab>echo x<Enter>", u"\t\techo x"},
          std::pair{u"echo words of a<Tab>table<Enter>", u"echo words of a\ttable"},
          std::pair{u"type al<Tab>x<Enter>", u"type alpha.txtx"},
          std::pair{u"type al<Tab><Enter>", u"type alpha.txt"},
          std::pair{u"type al<Tab><Tab><Enter>", u"type alps.txt"}}) {
        console.quietKeys = 1;
        EXPECT_EQ(ToUtf8(Edit(keys).line), ToUtf8(line));
    }
}

TEST_F(Editing, ThePromptTakesAFreshRow)
{
    console.WriteText(u"left by a program\r");
    Edit(u"ab");
    EXPECT_EQ(console.Row(0), u">ab");
}

// Up and Down go between the lines of a text, and to the history from its ends.
TEST_F(Editing, LinesOfATextAreGoneThrough)
{
    world.history = {u"old"};
    console.clipboard = u"a\u4E2Dcd\nx\nlong line";
    EXPECT_EQ(Edit(u"<Ctrl-V><Home><Right><Right><Right><Up>1<Up><Right>2<Down><Down>3<Enter>").line,
              u"a\u4E2Dc2d\nx1\nlo3ng line");
    EXPECT_EQ(Edit(u"<Ctrl-V><Home><Up><Up><Up><Esc><Up><Up><Enter>").line, u"old");
}

// How many cells each key writes, drawn before the next key is read.
TEST_F(Editing, OnlyWhatChangesIsWritten)
{
    std::vector<std::size_t> written;
    console.onWait = [&] { written.push_back(std::exchange(console.cellsWritten, 0)); };
    Edit(u"ab c<Left><Left><Shift-Right><Home><Del>x<Esc>");
    // Behind the prompt; a b blank c; two motions; a selected cell, given up again; "b c" and a blank, "xb
    // c".
    EXPECT_EQ(written, (std::vector<std::size_t>{0, 1, 1, 0, 1, 0, 0, 1, 1, 4, 4, 4}));
}

TEST_F(Editing, LongLinesAndSmallScreens)
{
    settings.overstrike = false;
    Edit(u"0123456789012345678901234567890123456789");
    EXPECT_EQ(console.Row(0), u">012345678901234567890123456789012345678");
    EXPECT_EQ(console.Row(1), u"9");

    // At the bottom the screen moves up.
    console.cursor = {5, 0};
    Edit(u"0123456789012345678901234567890123456789<Home>");
    EXPECT_EQ(console.Row(4), u">012345678901234567890123456789012345678");
    EXPECT_EQ(console.Row(5), u"9");
    EXPECT_EQ(console.cursor, (ScreenPlace{5, 1})) << "behind the line when it has ended";

    // More rows than the screen has: those around the cursor, and the prompt again at the beginning.
    console.Resize(4, 2);
    console.cursor = {0, 0};
    std::vector<CString> rows;
    console.onWait = [&] { rows.push_back(console.Row(0) + u"|" + console.Row(1)); };
    Edit(u"abcdefghi<Home>");
    EXPECT_EQ(rows.back(), u">abc|defg");
    EXPECT_EQ(rows[rows.size() - 2], u"defg|hi");
    console.onWait = [&] { rows.push_back(console.Row(0)); };
    console.Resize(3, 1);
    console.cursor = {0, 0};
    Edit(u"abcd<Left><Left><Left>");
    EXPECT_EQ(rows.back(), u">ab");
}

TEST_F(Editing, WideAndControlCharacters)
{
    console.Resize(6, 3);
    std::vector<ScreenPlace> cursors;
    console.onWait = [&] { cursors.push_back(console.cursor); };
    Edit(u"a\u4E2D\u6587b"); // two of two cells: the second does not fit half
    EXPECT_EQ(console.Row(0), u">a\u4E2D\u6587");
    EXPECT_EQ(console.Row(1), u"b");
    console.cursor = {0, 0};
    Edit(u"ab\u4E2D\u6587");
    EXPECT_EQ(console.Row(0), u">ab\u4E2D");
    EXPECT_EQ(console.Row(1), u"\u6587");
    console.cursor = {0, 0};
    Edit(u"x<Ctrl-Z>");
    EXPECT_EQ(console.Row(0), u">x^Z");
}

// Some consoles cut rows that are too long now, others break them.
TEST_F(Editing, ShownAnewAtANewSize)
{
    for (const bool breaks : {false, true}) {
        console.Resize(20, 6);
        console.cursor = {1, 0};
        console.onWait = [&] {
            if (console.events.size() != 1 || console.Extent().columns != 20)
                return;
            if (breaks)
                console.BreakRows(10);
            else
                console.Resize(10, 6);
            console.events.push_front({ConsoleEventKind::Resized, {}, {}, 0});
        };
        Edit(u"0123456789abcdefghijklmn<Left><Left>x");
        EXPECT_EQ(console.Row(0), u"");
        EXPECT_EQ(console.Row(1), u">012345678");
        EXPECT_EQ(console.Row(2), u"9abcdefghi");
        EXPECT_EQ(console.Row(3), u"jklxmn");
        EXPECT_EQ(console.Row(4), u"");
        console.Resize(0, 0); // forgets what is shown
    }
}

TEST_F(Editing, TheLineThatIsLeftIsWhole)
{
    settings.syntaxColors = console.drawsBetweenKeys = true;
    world.history = {u"echo old"};
    Edit(u"ec<Ctrl-P><Enter>");
    EXPECT_EQ(console.Row(0), u">ec");
    console.drawsBetweenKeys = false;
    console.cursor = {4, 0};
    Edit(u"x<Ctrl-P><Enter>");
    EXPECT_EQ(console.Row(4), u">x");
}

TEST_F(Editing, ColorsAndSuggestions)
{
    settings.syntaxColors = true;
    world.history = {u"echo \"old words\" %x%", u"dir"};
    std::vector<CString> rows;
    console.onWait = [&] { rows.push_back(console.Row(0)); };
    EXPECT_EQ(Edit(u"ec<Right><Enter>").line, u"echo \"old words\" %x%");
    EXPECT_EQ(rows[1], u">echo \"old words\" %x%");
    EXPECT_EQ(console.Color(0, 1), unsigned(LinePartKind::Command));
    EXPECT_EQ(console.Color(0, 7), unsigned(LinePartKind::Text));
    EXPECT_EQ(console.Color(0, 18), unsigned(LinePartKind::Environment));
    EXPECT_EQ(Edit(u"ec<Ctrl-Right><Ctrl-Right><Enter>").line, u"echo \"old");
    EXPECT_EQ(Edit(u"echo \"open<Enter>").line, u"echo \"open");
    console.Resize(60, 6);
    console.cursor = {0, 0};
    Edit(u"dir ::a.*\\b \"::c d\" /e:f & ffind /e\"g h\" *.txt<Enter>");
    CString kinds;
    for (int column = 1; column < 50; ++column)
        kinds.Append(console.Color(0, column) == unsigned(LinePartKind::Regex)
                         ? console.Row(0)[std::size_t(column)]
                         : u' ');
    EXPECT_EQ(std::u16string(kinds.TrimRight().view()), u"    ::a.*\\b \"::c d\"                \"g h\"");
}

} // namespace
