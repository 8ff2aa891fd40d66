#include "console/line_editor.h"

#include <algorithm>
#include <utility>

#include "config/key_names.h"
#include "console/key_press_names.h"
#include "console/line_colors.h"
#include "text/compare.h"

namespace {

constexpr std::size_t shortestBurst = 2; // keys; nobody types so many between two looks at the keyboard
// Keys that wait count twice, with their release.
constexpr std::size_t shortestText = 16;        // keys that no slow line hands over together
constexpr std::size_t shortestRest = 6;         // events behind a key that show it to be part of a text
constexpr std::uint64_t longestGap = 30;        // milliseconds between two pieces of a paste
constexpr std::size_t keysBetweenLooks = 32768; // in a long paste the line is shown now and then

// Consoles make either of the last two of a line feed.
bool IsLineEnd(std::u16string_view key)
{
    return key == u"Enter" || key == u"Ctrl-J" || key == u"Ctrl-Enter";
}

unsigned Exchanged(unsigned colors) { return (colors & 0x0F) << 4 | (colors >> 4 & 0x0F); }

} // namespace

LineEditor::LineEditor(EditorConsole& on, EditorWorld& around, const EditorSettings& with)
    : console(on), world(around), settings(with), painter(on)
{}

EditorAnswer LineEditor::Read(const EditorRequest& wanted)
{
    request = &wanted;
    answer = {};
    outcome.reset();
    text.Start(wanted.text, std::min(wanted.cursor, wanted.text.size()), LongestLine());
    if (wanted.command && wanted.clearsRow)
        painter.ClearRow();
    console.WriteText(wanted.prompt);
    typedAhead = console.Waiting() > 0;
    painter.Begin();
    ShapeCursor();
    Show();
    console.beforeBreak = [this] {
        outcome = EditorOutcome::Break;
        ShowFinished();
        outcome.reset();
    };
    std::optional<std::uint64_t> patience = wanted.milliseconds;
    while (!outcome) {
        Take(console.Wait(patience));
        patience.reset();
        if (outcome)
            break;
        const bool pause = console.Waiting() == 0 && (burst < shortestBurst || !console.Await(longestGap));
        if (pause || burst % keysBetweenLooks == keysBetweenLooks - 1)
            Show();
        if (pause) {
            typedAhead = keptWaiting = false;
            burst = 0;
        }
    }
    console.beforeBreak = nullptr;
    TakeTyped();
    ShowFinished();
    answer.outcome = *outcome;
    answer.recalled = recall.Walking() && recall.Lines()[recall.Place()] == text.Text();
    answer.place = answer.recalled ? recall.Place() : CString::npos;
    if (!answer.silent)
        answer.line = text.Text();
    return answer;
}

void LineEditor::Take(const ConsoleEvent& event)
{
    switch (event.kind) {
    case ConsoleEventKind::None: Finish(EditorOutcome::Ended); break;
    case ConsoleEventKind::TimedOut: Finish(EditorOutcome::TimedOut); break;
    case ConsoleEventKind::Resized:
        if (painter.TakeNewSize())
            Redraw();
        break;
    case ConsoleEventKind::Key:
        TakeKey(event.key);
        ++burst;
        break;
    case ConsoleEventKind::Press:
    case ConsoleEventKind::Wheel: break;
    }
}

void LineEditor::TakeKey(const KeyPress& key)
{
    if (escapesNext && key.unit != 0) {
        escapesNext = false;
        TypeUnit(key.unit);
        return;
    }
    if (TypesCharacter(key)) {
        TypeUnit(key.unit);
        return;
    }
    const CString name = NameOfKey(key);
    if (EndsPasted(name))
        return;
    TakeTyped();
    if (name == u"Ctrl-C" && !text.HasSelection()) {
        Finish(EditorOutcome::Break);
        return;
    }
    if (TakeAlias(name))
        return;
    const int function =
        IsNormalKey(name) ? -1 : world.Bindings().FindKeyFunction(key_category::lineEditor, name);
    const EditorAction action = name == u"Ctrl-C" && function < 0
                                    ? ActionOfKeyFunction(KeyBindings::Find(u"Copy"))
                                : function >= 0 ? ActionOfKeyFunction(function)
                                                : nullptr;
    if (action)
        Perform(action);
    else if (key.unit != 0)
        TypeUnit(key.unit);
}

void LineEditor::Perform(EditorAction action)
{
    performing = action;
    action(*this);
    performing = nullptr;
    if (text.TakeRefusal())
        Beep();
    lastAction = action;
    keptWaiting = keptWaiting || console.Waiting() > 0;
}

// Whether the line end or tab that has just been read came in the middle of other keys.
bool LineEditor::IsInBurst(bool tab)
{
    const std::size_t waiting = console.Waiting();
    if (!tab || HasSeveralLines())
        return burst >= shortestBurst || (!tab && waiting >= shortestRest);
    // In a first line a tab is a wish for a name, unless it indents what follows or stands in the middle of
    // more keys than a slow line hands over together.
    const bool indents = waiting >= shortestRest && text.Size() == 0 &&
                         unshown.view().find_first_not_of(u" \t") == CString::npos;
    return !keptWaiting && waiting > 0 && (indents || burst + waiting / 2 >= shortestText);
}

bool LineEditor::HasSeveralLines() const
{
    return unshown.Find(u'\n') != CString::npos || text.Text().Find(u'\n') != CString::npos;
}

// A line end or tab in the middle of pasted text belongs to the text: nothing runs before all of it has come.
bool LineEditor::EndsPasted(std::u16string_view key)
{
    const bool enter = IsLineEnd(key);
    const bool tab = key == u"Tab";
    const bool secondHalf = enter && key != u"Enter" && std::exchange(endedRow, false); // CR LF
    if ((!enter && !tab) || typedAhead || !request->command || !IsInBurst(tab))
        return false;
    const bool goesOn = enter || console.Waiting() >= shortestRest;
    console.Await(longestGap);
    const ConsoleEvent next = console.Peek();
    if (next.kind != ConsoleEventKind::Key)
        return false;
    const CString nextName = NameOfKey(next.key);
    const bool ofText = TypesCharacter(next.key) || (IsLineEnd(nextName) && (goesOn || HasSeveralLines())) ||
                        (nextName == u"Tab" && goesOn);
    if (ofText && !secondHalf)
        unshown.Append(enter ? u'\n' : u'\t');
    endedRow = ofText ? key == u"Enter" : endedRow;
    return ofText;
}

bool LineEditor::TakeAlias(std::u16string_view key)
{
    const auto alias = request->command ? world.AliasOfKey(key) : std::nullopt;
    if (!alias)
        return false;
    lastAction = nullptr;
    if (alias->runs)
        Run(alias->text);
    else
        text.Insert(alias->text);
    if (text.TakeRefusal())
        Beep();
    return true;
}

bool LineEditor::IsNormalKey(std::u16string_view name) const
{
    std::u16string_view keys = settings.normalKeys;
    while (!keys.empty()) {
        const std::size_t end = std::min(keys.find_first_of(u" \t,;"), keys.size());
        if (end > 0 && KeyName(keys.substr(0, end)) == name)
            return true;
        keys.remove_prefix(std::min(end + 1, keys.size()));
    }
    return false;
}

// A key that doubles what stands there must not take all memory when it is held down.
std::size_t LineEditor::LongestLine() const
{
    constexpr std::size_t longestLine = std::size_t{1} << 20; // units
    return std::min(request->longest, longestLine);
}

bool LineEditor::Accepts(char16_t unit) const
{
    if (text.Size() + unshown.size() - (text.SelectionEnd() - text.SelectionBegin()) >= LongestLine())
        return false;
    if (unit == u'\n' && !request->command)
        return false;
    return request->accepted.empty() ||
           std::any_of(request->accepted.begin(), request->accepted.end(),
                       [&](const CString& each) { return EqualNoCase(each, CString(1, unit)); });
}

void LineEditor::TypeUnit(char16_t unit)
{
    if (!Accepts(unit)) {
        Beep();
        return;
    }
    unshown.Append(unit);
    endedRow = false;
    lastAction = nullptr;
}

// Typed characters are put into the text together, so that a paste into a long line does not move its end
// once for each.
void LineEditor::TakeTyped()
{
    if (unshown.empty())
        return;
    text.Type(unshown, settings.overstrike && unshown.Find(u'\n') == CString::npos);
    unshown.Clear();
}

void LineEditor::Finish(EditorOutcome how) { outcome = how; }

void LineEditor::Run(const CString& silentLine)
{
    answer.silent = true;
    answer.line = silentLine;
    answer.left = text.Text();
    answer.leftCursor = text.Cursor();
    Finish();
}

void LineEditor::ShapeCursor()
{
    console.ShapeCursor(settings.overstrike ? settings.cursorOver : settings.cursorIns);
}

void LineEditor::Suggest()
{
    const bool shown = settings.syntaxColors && request->command && !request->hidden && !outcome;
    if (!shown || !text.AtEnd() || text.HasSelection())
        return;
    if (recall.Walking() && recall.Lines()[recall.Place()] == text.Text())
        return;
    if (!recall.HasLines())
        recall.Take(world.History(false));
    const CString* found = recall.Suggest(text.View(), settings.histCase);
    if (found && found->Find(u'\n') == CString::npos)
        suggestion = found->Substr(text.Size());
}

void LineEditor::Show(bool suggests)
{
    TakeTyped();
    suggestion.Clear();
    if (suggests)
        Suggest();
    PictureRequest look;
    painter.Complete(look);
    look.text = text.View();
    look.cursor = text.Cursor();
    const unsigned plain =
        settings.textColors != 0 && !request->plainColors ? settings.textColors : painter.Plain();
    look.plain = static_cast<std::uint8_t>(plain);
    if (settings.syntaxColors && request->command && !request->hidden) {
        if (coloredVersion != text.Version())
            colors = ColorLine(text.View(), world, look.plain);
        coloredVersion = text.Version();
        look.colors = &colors;
    }
    look.suggestion = suggestion;
    look.suggestionColors = static_cast<std::uint8_t>(settings.suggestionColors | (plain & 0xF0));
    look.selectionBegin = text.SelectionBegin();
    look.selectionEnd = text.SelectionEnd();
    look.selectionColors =
        static_cast<std::uint8_t>(settings.selectedColors != 0 ? settings.selectedColors : Exchanged(plain));
    look.hidden = request->hidden;
    picture = DrawLine(look);
    painter.Show(picture);
}

void LineEditor::ShowFinished()
{
    if (outcome == EditorOutcome::TimedOut)
        return;
    text.MoveTo(text.Size());
    Show();
    console.WriteText({}); // the colours of before
    if (outcome != EditorOutcome::Line || !request->lineEnd)
        return;
    painter.MoveBehind(picture.endsInEmptyRow);
    console.WriteText(u"\r\n");
}

void LineEditor::LeaveLine()
{
    Show(false);
    painter.MoveBehind(picture.endsInEmptyRow);
    console.WriteText(u"\r\n");
    console.Lend(true);
}

void LineEditor::ReturnToLine()
{
    console.Lend(false);
    if (console.Cursor().column != 0)
        console.WriteText(u"\r\n");
    console.WriteText(request->prompt);
    painter.Begin();
    ShapeCursor();
    Show();
}

void LineEditor::Redraw()
{
    const CString& prompt = request->prompt;
    painter.Erase(!prompt.empty(),
                  static_cast<int>(std::count(prompt.view().begin(), prompt.view().end(), u'\n')));
    console.WriteText(prompt);
    painter.Begin();
    Show();
}
