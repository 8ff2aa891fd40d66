// Any keys at any size of the screen: the cursor stands between characters, what is on the screen is what the
// line looks like, and undoing everything gives back what the line began with.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "console/line_editor.h"
#include "tests/unit/fake_console.h"
#include "tests/unit/fake_editor_world.h"

namespace {

void Check(bool holds, int line = __builtin_LINE())
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: line %d\n", line);
    std::abort();
}

constexpr std::size_t mostKeys = 400;
constexpr std::u16string_view characters = u"ab \"%&^x\u0301\u4E2D\xD83D\xDE00\n";

// Keys of functions that change only the line: the others end it or leave it.
bool IsHarmless(const KeyFunctionRow& row)
{
    const std::u16string_view name = row.name;
    return (row.category & key_category::lineEditor) != 0 && name != u"ExecLine" && name != u"LineToEnd" &&
           name != u"HistWinOpen";
}

void PushKey(FakeConsole& console, std::uint8_t byte)
{
    if (byte < 128) {
        console.Push(KeyPressTyping(characters[byte % characters.size()]));
        return;
    }
    const KeyFunctionRow& row = aKeyFunctions[byte % nKeyFunctions];
    const std::u16string_view keys = row.keys;
    if (IsHarmless(row))
        console.Press(keys.substr(0, keys.find(u' ')));
}

void CheckScreen(FakeConsole& console, const LineEditor& editor)
{
    const std::u16string_view text = editor.text.View();
    const std::size_t cursor = editor.text.Cursor();
    Check(cursor <= text.size());
    Check(cursor == text.size() || NextCharacter(text, PreviousCharacter(text, cursor)) == cursor ||
          cursor == 0);

    const ScreenExtent extent = console.Extent();
    PictureRequest look;
    look.text = text;
    look.cursor = cursor;
    look.columns = extent.columns;
    look.rows = 1000;
    look.indent = 1 % extent.columns;
    const LinePicture picture = DrawLine(look);
    if (extent.columns < 2 || static_cast<int>(picture.rows.size()) > extent.rows)
        return; // only a part of it is shown
    Check(console.cursor.column == picture.cursorColumn);
    for (int row = 0; row < static_cast<int>(picture.rows.size()); ++row) {
        CString expected(row == 0 ? u">" : u"");
        for (const PictureCell& cell : picture.rows[static_cast<std::size_t>(row)])
            if (cell.count > 0)
                expected.Append(cell.units[0]);
        Check(console.Row(console.cursor.row - picture.cursorRow + row) == expected.TrimRight());
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 3 || size > mostKeys)
        return 0;
    FakeConsole console(2 + data[0] % 30, 1 + data[1] % 8);
    FakeEditorWorld world;
    world.history = {u"abc", u"a \"b\" c", u"", u"\u4E2D"};
    world.directories = {u"a", u"b"};
    EditorSettings settings;
    settings.overstrike = data[2] % 2 != 0;
    console.drawsBetweenKeys = true;
    for (std::size_t at = 3; at < size; ++at) {
        if (data[at] == 255)
            console.Push(ConsoleEvent{ConsoleEventKind::Resized, {}, {}, 0});
        else
            PushKey(console, data[at]);
    }
    LineEditor editor(console, world, settings);
    EditorRequest request;
    request.prompt = u">";
    console.onWait = [&] { CheckScreen(console, editor); };
    editor.Read(request);
    console.onWait = nullptr;
    while (editor.text.Undo()) {
    }
    Check(editor.text.Size() == 0);
    return 0;
}
