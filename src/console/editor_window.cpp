#include "console/editor_actions.h"

namespace {

// The window's size comes back as an event, and the line is shown anew then.
void Change(LineEditor& editor, WindowChange change)
{
    if (!editor.world.ChangeWindow(change))
        editor.Beep();
}

void SayUnbuilt(LineEditor& editor, std::u16string_view keyFunction, bool isDialog)
{
    editor.LeaveLine();
    editor.world.ReportUnbuilt(keyFunction, isDialog);
    editor.ReturnToLine();
}

} // namespace

void ConsoleHeightMax(LineEditor& editor) { Change(editor, WindowChange::HeightMax); }
void ConsoleHeightMin(LineEditor& editor) { Change(editor, WindowChange::HeightMin); }
void ConsoleWidthMax(LineEditor& editor) { Change(editor, WindowChange::WidthMax); }
void ConsoleWidthMin(LineEditor& editor) { Change(editor, WindowChange::WidthMin); }
void FontMax(LineEditor& editor) { Change(editor, WindowChange::FontMax); }
void FontMin(LineEditor& editor) { Change(editor, WindowChange::FontMin); }
void MoveConsoleDown(LineEditor& editor) { Change(editor, WindowChange::Down); }
void MoveConsoleLeft(LineEditor& editor) { Change(editor, WindowChange::Left); }
void MoveConsoleRight(LineEditor& editor) { Change(editor, WindowChange::Right); }
void MoveConsoleUp(LineEditor& editor) { Change(editor, WindowChange::Up); }

void ExecLine(LineEditor& editor) { editor.Finish(); }

void HelpWord(LineEditor& editor)
{
    editor.LeaveLine();
    editor.world.ShowHelp(editor.text.View(), editor.text.Cursor());
    editor.ReturnToLine();
}

void CommandDialog(LineEditor& editor) { SayUnbuilt(editor, u"CommandDialog", true); }
void Regex(LineEditor& editor) { SayUnbuilt(editor, u"Regex", true); }
void SingleStep(LineEditor& editor) { SayUnbuilt(editor, u"SingleStep", false); }
