#include <algorithm>

#include "console/edit_words.h"
#include "console/editor_actions.h"
#include "text/cell_width.h"

namespace {

using Place = std::size_t (*)(std::u16string_view text, std::size_t at);

// Deletes the selection, or what is between the cursor and another place.
void DeleteTo(LineEditor& editor, Place place)
{
    EditText& text = editor.text;
    if (text.HasSelection()) {
        text.EraseSelection();
        return;
    }
    const std::size_t other = place(text.View(), text.Cursor());
    text.Erase(std::min(text.Cursor(), other), std::max(text.Cursor(), other));
}

// A word and the blanks behind it.
std::size_t BehindArgument(std::u16string_view text, std::size_t at)
{
    const std::size_t end = ArgumentRightOf(text, at);
    return std::min(text.find_first_not_of(u" \t", end), text.size());
}

std::size_t Begin(std::u16string_view, std::size_t) { return 0; }
std::size_t End(std::u16string_view text, std::size_t) { return text.size(); }

// Only line feeds part lines while they are edited, and a text that ends in one is the same without it.
CString PastedText(std::u16string_view pasted)
{
    CString text;
    text.Reserve(pasted.size());
    for (std::size_t at = 0; at < pasted.size(); ++at) {
        if (pasted[at] == u'\0')
            continue;
        if (pasted[at] != u'\r')
            text.Append(pasted[at]);
        else if (at + 1 == pasted.size() || pasted[at + 1] != u'\n')
            text.Append(u'\n');
    }
    return text.TrimRight(u"\n");
}

void ReplaceAll(LineEditor& editor, const CString& by)
{
    if (by.view() != editor.text.View())
        editor.text.SetText(by);
}

bool InName(char16_t unit) { return unit > u' ' && unit != u'%' && unit != u'"'; }

// The reference that the cursor is in or behind: "%name%", "%name", "%@name[...]"; npos for none.
std::size_t ReferenceAt(std::u16string_view text, std::size_t at, std::size_t& end)
{
    const std::size_t begin = at == 0 ? text.npos : text.rfind(u'%', at - 1);
    const bool closing = begin != text.npos && begin > 0 && begin + 1 == at;
    const std::size_t opening = closing ? text.rfind(u'%', begin - 1) : begin;
    if (opening == text.npos)
        return opening;
    end = opening + 1;
    int brackets = 0;
    for (; end < text.size() && (brackets > 0 || InName(text[end])); ++end)
        brackets += text[end] == u'[' ? 1 : text[end] == u']' ? -1 : 0;
    if (end < text.size() && text[end] == u'%')
        ++end;
    return opening;
}

} // namespace

void Backspace(LineEditor& editor) { DeleteTo(editor, PreviousCharacter); }
void Del(LineEditor& editor) { DeleteTo(editor, NextCharacter); }
void DelArgLeft(LineEditor& editor) { DeleteTo(editor, ArgumentLeftOf); }
void DelArgRight(LineEditor& editor) { DeleteTo(editor, BehindArgument); }
void DelToBeginning(LineEditor& editor) { DeleteTo(editor, Begin); }
void DelToEnd(LineEditor& editor) { DeleteTo(editor, End); }
void DelWordLeft(LineEditor& editor) { DeleteTo(editor, WordLeftOf); }
void DelWordRight(LineEditor& editor) { DeleteTo(editor, WordRightOf); }

void EraseLine(LineEditor& editor)
{
    editor.text.Erase(0, editor.text.Size());
    if (editor.settings.escResetHistory)
        editor.recall.EndWalk();
}

void Ins(LineEditor& editor)
{
    editor.settings.overstrike = !editor.settings.overstrike;
    editor.world.NoteOverstrike(editor.settings.overstrike);
    editor.ShapeCursor();
}

void Undo(LineEditor& editor)
{
    if (!editor.text.Undo())
        editor.Beep();
}

void Redo(LineEditor& editor)
{
    if (!editor.text.Redo())
        editor.Beep();
}

void Copy(LineEditor& editor)
{
    CString copied(editor.text.HasSelection() ? editor.text.Selection() : editor.text.View());
    if (!editor.text.HasSelection() && editor.settings.copyPrompt)
        copied = editor.request->prompt + copied;
    if (editor.request->hidden || !editor.console.WriteClipboard(copied))
        editor.Beep();
}

void Paste(LineEditor& editor)
{
    const auto pasted = editor.console.ReadClipboard();
    CString text = pasted ? PastedText(*pasted) : CString();
    if (!editor.request->command)
        text.Truncate(text.Find(u'\n'));
    if (text.empty() || !editor.request->accepted.empty())
        editor.Beep();
    else
        editor.text.Insert(text);
}

void CommandEscape(LineEditor& editor) { editor.escapesNext = true; }

void AliasExpand(LineEditor& editor)
{
    CString line = editor.text.Text();
    if (editor.world.ExpandAliasesIn(line))
        ReplaceAll(editor, line);
    else
        editor.ReturnToLine(); // below the report
}

void VariableExpand(LineEditor& editor)
{
    CString line = editor.text.Text();
    if (editor.world.ExpandVariablesIn(line))
        ReplaceAll(editor, line);
    else
        editor.ReturnToLine();
}

void VariableExpandWord(LineEditor& editor)
{
    std::size_t end = 0;
    const std::size_t begin = ReferenceAt(editor.text.View(), editor.text.Cursor(), end);
    CString value = begin == CString::npos ? CString() : editor.text.Text().Substr(begin, end - begin);
    if (value.empty())
        editor.Beep();
    else if (!editor.world.ExpandVariablesIn(value))
        editor.ReturnToLine();
    else
        editor.text.Replace(begin, end, value);
}

void RepeatArgument(LineEditor& editor)
{
    const std::u16string_view text = editor.text.View();
    const std::size_t cursor = editor.text.Cursor();
    const std::size_t begin = ArgumentLeftOf(text, cursor);
    CString argument(text.substr(begin, cursor - begin));
    argument.TrimRight();
    if (argument.empty()) {
        editor.Beep();
        return;
    }
    const bool apart = cursor > 0 && text[cursor - 1] != u' ';
    editor.text.Insert((apart ? CString(u" ") : CString()) + argument);
}
