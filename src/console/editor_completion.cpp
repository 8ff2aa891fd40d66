#include <algorithm>

#include "console/editor_actions.h"

namespace {

using Completing = LineEditor::Completing;

bool GoesOn(const LineEditor& editor)
{
    return editor.completing && editor.completing->version == editor.text.Version();
}

void Put(LineEditor& editor, std::size_t index)
{
    Completing& now = *editor.completing;
    const CString& candidate = now.offer.candidates[index].text;
    CString& forQuotes = now.offer.forQuotes;
    if (candidate.front() == u'"' && !forQuotes.empty()) {
        const std::size_t at = std::min(now.offer.quoteAt, now.from);
        const CString between = editor.text.Text().Substr(at, now.from - at);
        editor.text.Replace(at, now.to, forQuotes + between + candidate);
        now.from += forQuotes.size();
        forQuotes.Clear();
    } else
        editor.text.Replace(now.from, now.to, candidate);
    now.index = index;
    now.to = now.from + candidate.size();
    now.version = editor.text.Version();
    editor.lastCompleted = candidate;
}

// Asks for what fits the line as it stands; false when nothing does.
bool Start(LineEditor& editor, CompletionKind kind, bool shortNames)
{
    Completing now;
    now.kind = kind;
    now.shortNames = shortNames;
    now.original = editor.text.Text();
    now.originalCursor = editor.text.Cursor();
    now.offer = editor.request->hidden
                    ? CompletionOffer()
                    : editor.world.Completion().Offer(now.original, now.originalCursor,
                                                      shortNames ? CompletionKind::ShortNames : kind);
    now.from = std::min(now.offer.from, now.original.size());
    now.to = std::clamp(now.offer.to, now.from, now.original.size());
    editor.completing.reset();
    if (now.offer.candidates.empty()) {
        editor.Beep();
        return false;
    }
    editor.completing = std::move(now);
    return true;
}

// A single candidate is final: the next key completes what it has become.
void Begin(LineEditor& editor, CompletionKind kind, bool last)
{
    if (!Start(editor, kind, false))
        return;
    const std::size_t count = editor.completing->offer.candidates.size();
    Put(editor, last ? count - 1 : 0);
    editor.completing->final = count == 1;
}

void Next(LineEditor& editor, CompletionKind kind)
{
    if (!GoesOn(editor) || editor.completing->final || editor.completing->kind != kind) {
        Begin(editor, kind, false);
        return;
    }
    const Completing& now = *editor.completing;
    if (now.index + 1 < now.offer.candidates.size())
        Put(editor, now.index + 1);
    else if (editor.settings.completionLoops)
        Put(editor, 0);
    else
        editor.Beep();
}

void Browse(LineEditor& editor, bool directory)
{
    const CString name = editor.world.Browse(directory);
    if (!name.empty())
        editor.text.Insert(name);
}

// The path without its last name, its opening quote kept: "a\b\c" and "a\b\" become "a\b\" and "a\".
CString ParentOf(std::u16string_view path)
{
    CString parent(path);
    parent.TrimRight(u"\"");
    if (parent.back() == u'\\' || parent.back() == u'/')
        parent.Truncate(parent.size() - 1);
    const std::size_t end = parent.view().find_last_of(u"\\/");
    return parent.Truncate(end == CString::npos ? 0 : end + 1);
}

} // namespace

void NextFile(LineEditor& editor) { Next(editor, CompletionKind::Files); }
void DirectoryCompletion(LineEditor& editor) { Next(editor, CompletionKind::Directories); }
void PATHCompletion(LineEditor& editor) { Next(editor, CompletionKind::SearchPath); }

void PrevFile(LineEditor& editor)
{
    if (!GoesOn(editor)) {
        Begin(editor, CompletionKind::Files, true);
        return;
    }
    const Completing& now = *editor.completing;
    if (now.index > 0)
        Put(editor, now.index - 1);
    else if (editor.settings.completionLoops)
        Put(editor, now.offer.candidates.size() - 1);
    else
        editor.Beep();
}

void AddFile(LineEditor& editor)
{
    if (!GoesOn(editor)) {
        Begin(editor, CompletionKind::Files, false);
        return;
    }
    Completing& now = *editor.completing;
    if (now.index + 1 >= now.offer.candidates.size()) {
        editor.Beep();
        return;
    }
    const std::size_t end = now.to;
    editor.text.Replace(end, end, u" ");
    now.from = now.to = end + 1;
    Put(editor, now.index + 1);
}

void RepeatFile(LineEditor& editor)
{
    if (editor.lastCompleted.empty()) {
        editor.Beep();
        return;
    }
    const std::size_t cursor = editor.text.Cursor();
    const bool apart = cursor > 0 && editor.text.Text()[cursor - 1] != u' ';
    editor.text.Insert((apart ? CString(u" ") : CString()) + editor.lastCompleted);
}

void OriginalFile(LineEditor& editor)
{
    if (!editor.completing) {
        editor.Beep();
        return;
    }
    editor.text.SetText(editor.completing->original);
    editor.text.MoveTo(editor.completing->originalCursor);
    editor.completing.reset();
}

void PopFile(LineEditor& editor)
{
    const bool goesOn = GoesOn(editor);
    if (!goesOn && !Start(editor, CompletionKind::Files, false))
        return;
    PickRequest request;
    request.start = editor.completing->index;
    for (const CompletionCandidate& candidate : editor.completing->offer.candidates) {
        request.lines.push_back(candidate.shown.empty() ? candidate.text : candidate.shown);
        request.notes.push_back(candidate.hint);
    }
    editor.Show();
    const auto pick = editor.world.Pick(editor.console, request);
    if (pick && pick->chosen < request.lines.size())
        Put(editor, pick->chosen);
    else if (!goesOn)
        editor.completing.reset();
}

// The same name in its other form.
void LFNToggle(LineEditor& editor)
{
    if (!GoesOn(editor)) {
        if (Start(editor, CompletionKind::Files, true))
            Put(editor, 0);
        return;
    }
    const Completing before = *editor.completing;
    const CompletionOffer offer = editor.world.Completion().Offer(
        before.original, before.originalCursor, before.shortNames ? before.kind : CompletionKind::ShortNames);
    if (offer.candidates.empty()) {
        editor.Beep();
        return;
    }
    editor.completing->offer = offer;
    editor.completing->offer.forQuotes = before.offer.forQuotes;
    editor.completing->shortNames = !before.shortNames;
    Put(editor, std::min(before.index, offer.candidates.size() - 1));
}

void ParentDirectory(LineEditor& editor)
{
    if (!GoesOn(editor)) {
        editor.Beep();
        return;
    }
    const Completing& now = *editor.completing;
    const CString present = editor.text.Text().Substr(now.from, now.to - now.from);
    const CompletionKind kind = now.kind;
    const CString parent = ParentOf(ParentOf(present));
    editor.text.Replace(now.from, now.to, parent);
    Begin(editor, kind, false);
}

void FileBrowse(LineEditor& editor) { Browse(editor, false); }
void FolderBrowse(LineEditor& editor) { Browse(editor, true); }
