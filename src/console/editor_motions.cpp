#include "console/edit_words.h"
#include "console/editor_actions.h"
#include "text/cell_width.h"

namespace {

using Place = std::size_t (*)(std::u16string_view text, std::size_t at);

void Move(LineEditor& editor, Place place)
{
    editor.text.MoveTo(place(editor.text.View(), editor.text.Cursor()));
}

void Select(LineEditor& editor, Place place)
{
    editor.text.SelectTo(place(editor.text.View(), editor.text.Cursor()));
}

// The beginning of a line of several, and then that of all of them.
std::size_t Beginning(std::u16string_view text, std::size_t at)
{
    const std::size_t line = LineBeginAt(text, at);
    return line == at ? 0 : line;
}

std::size_t End(std::u16string_view text, std::size_t at)
{
    const std::size_t line = LineEndAt(text, at);
    return line == at ? text.size() : line;
}

} // namespace

void ArgLeft(LineEditor& editor) { Move(editor, ArgumentLeftOf); }
void ArgRight(LineEditor& editor) { Move(editor, ArgumentRightOf); }
void BeginLine(LineEditor& editor) { Move(editor, Beginning); }

void EndLine(LineEditor& editor)
{
    const CString suggested(editor.Suggestion());
    if (editor.text.AtEnd() && !suggested.empty())
        editor.text.Insert(suggested);
    else
        Move(editor, End);
}

void Left(LineEditor& editor) { Move(editor, PreviousCharacter); }

void Right(LineEditor& editor)
{
    if (editor.text.AtEnd())
        EndLine(editor);
    else
        Move(editor, NextCharacter);
}

void WordLeft(LineEditor& editor) { Move(editor, WordLeftOf); }

void WordRight(LineEditor& editor)
{
    const CString suggested(editor.Suggestion());
    if (editor.text.AtEnd() && !suggested.empty())
        editor.text.Insert(suggested.view().substr(0, WordEndAt(suggested, 0)));
    else
        Move(editor, WordRightOf);
}

void SelectFromHome(LineEditor& editor) { Select(editor, Beginning); }
void SelectLeft(LineEditor& editor) { Select(editor, PreviousCharacter); }
void SelectRight(LineEditor& editor) { Select(editor, NextCharacter); }
void SelectToEnd(LineEditor& editor) { Select(editor, End); }
void SelectWordLeft(LineEditor& editor) { Select(editor, WordLeftOf); }
void SelectWordRight(LineEditor& editor) { Select(editor, WordRightOf); }
