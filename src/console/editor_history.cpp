#include <algorithm>
#include <utility>

#include "console/edit_words.h"
#include "console/editor_actions.h"
#include "text/words.h"

namespace {

HistoryRecall::Rules RulesOf(const LineEditor& editor)
{
    return {editor.settings.histCase, editor.settings.histWrap};
}

bool TakeHistory(LineEditor& editor)
{
    if (!editor.request->command)
        return false;
    if (!editor.recall.HasLines())
        editor.recall.Take(editor.world.History(false));
    return !editor.recall.Lines().empty();
}

// A line of the history as it comes onto the command line.
std::u16string_view Recalled(const LineEditor& editor, std::u16string_view line)
{
    const std::size_t indent = line.find_first_not_of(u" \t");
    return editor.settings.maintainIndent || indent == line.npos ? line : line.substr(indent);
}

// The line at the place of the walk is still what is edited.
bool StandsUnchanged(const LineEditor& editor)
{
    return editor.recall.Walking() &&
           Recalled(editor, editor.recall.Lines()[editor.recall.Place()]) == editor.text.View();
}

using Step = const CString* (HistoryRecall::*)(std::u16string_view, std::size_t, const HistoryRecall::Rules&);

using OtherLine = std::size_t (*)(std::u16string_view text, std::size_t at);

// Between the lines of a text first; what the history has just shown is gone through as one.
bool MoveToLine(LineEditor& editor, OtherLine line)
{
    const std::size_t place =
        StandsUnchanged(editor) ? CString::npos : line(editor.text.View(), editor.text.Cursor());
    if (place == CString::npos)
        return false;
    editor.text.MoveTo(place);
    return true;
}

// Down at an empty line goes on behind the recalled line that has just run: those of a block, recalled at its
// first, come one after the other.
void StandAtLineThatRan(LineEditor& editor)
{
    const std::size_t place = editor.request->ranPlace;
    if (place == CString::npos || editor.recall.Walking() || editor.text.Size() != 0)
        return;
    const std::vector<CString>& lines = editor.recall.Lines();
    if (place + 1 < lines.size() && lines[place] == editor.request->ranLine)
        editor.recall.StandAt(place, {});
}

void Walk(LineEditor& editor, Step step)
{
    if (!TakeHistory(editor)) {
        editor.Beep();
        return;
    }
    // What was changed since is a beginning to look for.
    if (editor.recall.Walking() && !StandsUnchanged(editor))
        editor.recall.EndWalk();
    if (step == &HistoryRecall::Newer)
        StandAtLineThatRan(editor);
    const CString present = editor.text.Text();
    const CString* line = (editor.recall.*step)(present, present.size(), RulesOf(editor));
    if (!line) {
        editor.Beep();
        return;
    }
    if (const std::u16string_view recalled = Recalled(editor, *line); recalled != present.view())
        editor.text.SetText(recalled);
}

const CString* NewestLine(LineEditor& editor)
{
    return TakeHistory(editor) ? &editor.recall.Lines().back() : nullptr;
}

void InsertArgument(LineEditor& editor, std::size_t number)
{
    const CString* line = NewestLine(editor);
    const std::vector<CString> arguments = line ? editor.world.ArgumentsOf(*line) : std::vector<CString>();
    if (number < arguments.size())
        editor.text.Insert(arguments[number]);
    else
        editor.Beep();
}

// What has been typed so far is what a window shows lines of.
std::u16string_view TypedFilter(const LineEditor& editor)
{
    const bool looksFor = !editor.settings.appendCommandLines && !StandsUnchanged(editor);
    return looksFor ? editor.text.View() : std::u16string_view();
}

// The history as the window has left it; answers where the line that was picked stands now.
std::size_t TakeRemaining(HistoryRecall& recall, std::vector<CString> lines, const LinePick& pick)
{
    std::size_t place = pick.chosen;
    if (pick.deleted.empty() && pick.changed.empty())
        return place;
    std::vector<std::size_t> deleted = pick.deleted;
    std::sort(deleted.rbegin(), deleted.rend());
    for (const std::size_t gone : deleted) {
        lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(gone));
        place -= gone < place ? 1 : 0;
    }
    recall.Take(std::move(lines));
    return place;
}

void TakePicked(LineEditor& editor, const CString& line, bool runs)
{
    if (editor.settings.appendCommandLines) {
        editor.text.Insert(line);
        return;
    }
    editor.text.SetText(Recalled(editor, line));
    if (runs)
        editor.Finish();
}

// In quotes where it needs them and does not stand behind one that has been typed.
CString DirectoryArgument(const LineEditor& editor, const CString& directory, std::size_t at)
{
    return at > 0 && editor.text.View()[at - 1] == u'"' ? directory : AddQuotes(directory);
}

void Pick(LineEditor& editor, bool directory)
{
    HistoryRecall& recall = directory ? editor.directories : editor.recall;
    if (directory || !recall.HasLines())
        recall.Take(editor.world.History(directory));
    if (recall.Lines().empty() || !editor.request->command) {
        editor.Beep();
        return;
    }
    const std::size_t start = recall.Walking() ? recall.Place() : recall.Lines().size() - 1;
    std::vector<CString> lines = recall.Lines();
    const PickRequest request{directory ? PickFrom::Directories : PickFrom::History,
                              lines,
                              {},
                              start,
                              CString(directory ? u"" : TypedFilter(editor))};
    editor.Show();
    const auto pick = editor.world.Pick(editor.console, request);
    if (!pick)
        return;
    for (const auto& [place, line] : pick->changed)
        editor.world.ReplaceInHistory(directory, std::exchange(lines[place], line), line);
    for (const std::size_t gone : pick->deleted)
        editor.world.DeleteFromHistory(directory, lines[gone]);
    const bool picked = pick->chosen < lines.size();
    const CString line = picked ? lines[pick->chosen] : CString();
    const std::size_t place = TakeRemaining(recall, std::move(lines), *pick);
    if (!picked)
        return;
    if (directory) {
        editor.text.Insert(DirectoryArgument(editor, line, editor.text.SelectionBegin()));
        return;
    }
    if (!editor.settings.appendCommandLines)
        recall.StandAt(place, editor.text.View());
    TakePicked(editor, line, !pick->edits);
}

void WalkDirectories(LineEditor& editor, Step step)
{
    HistoryRecall& recall = editor.directories;
    const bool walked = editor.IsLast(PrevDirHistory) || editor.IsLast(NextDirHistory);
    const bool goesOn =
        walked && editor.pulled && editor.pulled->version == editor.text.Version() && recall.Walking();
    if (!goesOn) {
        recall.Take(editor.world.History(true));
        editor.pulled = {0, editor.text.SelectionBegin(), editor.text.SelectionEnd(), 0};
    }
    LineEditor::PulledArgument& there = *editor.pulled;
    const CString present = goesOn ? recall.Lines()[recall.Place()] : CString();
    const CString* directory = (recall.*step)(present, 0, {false, false});
    if (!directory) {
        editor.Beep();
        return;
    }
    const CString inserted = DirectoryArgument(editor, *directory, there.from);
    editor.text.Replace(there.from, there.to, inserted);
    there.to = there.from + inserted.size();
    there.version = editor.text.Version();
}

} // namespace

void PrevHistory(LineEditor& editor)
{
    if (!MoveToLine(editor, PlaceInLineAbove))
        Walk(editor, &HistoryRecall::Older);
}

void NextHistory(LineEditor& editor)
{
    if (!MoveToLine(editor, PlaceInLineBelow))
        Walk(editor, &HistoryRecall::Newer);
}

void EndHistory(LineEditor& editor)
{
    editor.recall.EndWalk();
    editor.text.SetText({});
}

void LastHistory(LineEditor& editor)
{
    const CString* line = NewestLine(editor);
    if (line && line->size() > editor.text.Size()) {
        editor.text.MoveTo(editor.text.Size());
        editor.text.Insert(line->view().substr(editor.text.Size()));
    } else
        editor.Beep();
}

void DelHistory(LineEditor& editor)
{
    if (!StandsUnchanged(editor)) {
        editor.Beep();
        return;
    }
    const std::vector<CString>& lines = editor.recall.Lines();
    editor.world.DeleteFromHistory(false, lines[editor.recall.Place()]);
    editor.recall.RemovePresent();
    editor.text.SetText(editor.recall.Walking() ? Recalled(editor, lines[editor.recall.Place()]) : u"");
}

void SaveHistory(LineEditor& editor)
{
    if (editor.text.Size() == 0 || !editor.request->command) {
        editor.Beep();
        return;
    }
    editor.world.SaveInHistory(editor.text.View());
    editor.recall.Forget();
    editor.text.SetText({});
}

void LineToEnd(LineEditor& editor)
{
    if (StandsUnchanged(editor)) {
        editor.world.DeleteFromHistory(false, editor.recall.Lines()[editor.recall.Place()]);
        editor.recall.EndWalk();
    }
    editor.Finish();
}

void PrintHistory(LineEditor& editor)
{
    editor.LeaveLine();
    editor.world.PrintHistory();
    editor.ReturnToLine();
}

// Pressed again it takes the last argument of the line before that one.
void PrevArgument(LineEditor& editor)
{
    if (!TakeHistory(editor)) {
        editor.Beep();
        return;
    }
    const bool goesOn =
        editor.pulled && editor.IsLast(PrevArgument) && editor.pulled->version == editor.text.Version();
    if (!goesOn)
        editor.pulled = {0, editor.text.SelectionBegin(), editor.text.SelectionEnd(), 0};
    LineEditor::PulledArgument& there = *editor.pulled;
    const std::vector<CString>& lines = editor.recall.Lines();
    if (there.back == lines.size()) {
        editor.Beep();
        return;
    }
    const std::vector<CString> arguments = editor.world.ArgumentsOf(lines[lines.size() - ++there.back]);
    const CString last = arguments.empty() ? CString() : arguments.back();
    editor.text.Replace(there.from, there.to, last);
    there.to = there.from + last.size();
    there.version = editor.text.Version();
}

void Argument0(LineEditor& editor) { InsertArgument(editor, 0); }
void Argument1(LineEditor& editor) { InsertArgument(editor, 1); }
void Argument2(LineEditor& editor) { InsertArgument(editor, 2); }
void Argument3(LineEditor& editor) { InsertArgument(editor, 3); }
void Argument4(LineEditor& editor) { InsertArgument(editor, 4); }
void Argument5(LineEditor& editor) { InsertArgument(editor, 5); }
void Argument6(LineEditor& editor) { InsertArgument(editor, 6); }
void Argument7(LineEditor& editor) { InsertArgument(editor, 7); }
void Argument8(LineEditor& editor) { InsertArgument(editor, 8); }
void Argument9(LineEditor& editor) { InsertArgument(editor, 9); }

void HistWinOpen(LineEditor& editor) { Pick(editor, false); }

void XHistWinOpen(LineEditor& editor)
{
    editor.Show();
    const auto pick = editor.request->command ? editor.world.PickExtended(editor.console, TypedFilter(editor))
                                              : std::nullopt;
    if (!pick) {
        editor.Beep();
        return;
    }
    if (!pick->text.empty())
        TakePicked(editor, pick->text, !pick->edits);
}

void DirWinOpen(LineEditor& editor) { Pick(editor, true); }
void PrevDirHistory(LineEditor& editor) { WalkDirectories(editor, &HistoryRecall::Older); }
void NextDirHistory(LineEditor& editor) { WalkDirectories(editor, &HistoryRecall::Newer); }
