#include "console/popup_list.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <utility>

#include "config/key_functions.h"
#include "console/key_press_names.h"
#include "text/cell_width.h"
#include "text/code_points.h"
#include "text/compare.h"
#include "text/format.h"
#include "text/words.h"

namespace {

constexpr int frameRows = 2;
constexpr int frameColumns = 2;
constexpr int wheelStep = 3;
constexpr int sideStep = 8;
constexpr int fieldCursor = 25;   // percent
constexpr int widestAligned = 40; // cells; notes stand further to the right beside longer lines

// Whether every word of the filter stands in the line or in its place.
bool FitsFilter(std::u16string_view line, std::u16string_view place, std::u16string_view filter)
{
    for (std::size_t at = 0; at < filter.size();) {
        const Word word = NextBlankWord(filter, at);
        const std::u16string_view text = filter.substr(word.start, word.length);
        if (word.length > 0 && FindNoCase(line, text) == CString::npos &&
            FindNoCase(place, text) == CString::npos)
            return false;
        at = std::max(word.end(), at + 1);
    }
    return true;
}

// Of parts behind commas as many as fit whole.
CString WholeParts(CString text, int cells)
{
    while (TextWidth(text) > cells) {
        const std::size_t comma = text.view().rfind(u',');
        if (comma == CString::npos)
            break;
        text = text.Substr(0, comma);
    }
    return text;
}

// A line that is edited in place.
class LineField {
public:
    explicit LineField(CString line) : text(std::move(line)), cursor(text.size()) {}

    // False when the key means nothing here.
    bool Take(const KeyPress& key, std::u16string_view name)
    {
        if (name == u"Left")
            cursor = PreviousCharacter(text, cursor);
        else if (name == u"Right")
            cursor = NextCharacter(text, cursor);
        else if (name == u"Home")
            cursor = 0;
        else if (name == u"End")
            cursor = text.size();
        else if (name == u"Del")
            text.Erase(cursor, NextCharacter(text, cursor) - cursor);
        else if (name == u"Backspace")
            EraseLeft();
        else if (TypesCharacter(key))
            text.Insert(cursor++, std::u16string_view(&key.unit, 1));
        else
            return false;
        return true;
    }
    const CString& Text() const { return text; }
    int CursorCell() const { return TextWidth(text.view().substr(0, cursor)); }

private:
    void EraseLeft()
    {
        const std::size_t before = PreviousCharacter(text, cursor);
        text.Erase(before, cursor - before);
        cursor = before;
    }

    CString text;
    std::size_t cursor;
};

class PopupList {
public:
    PopupList(EditorConsole& theConsole, PopupRequest what)
        : console(theConsole), request(std::move(what)), filter(request.filter),
          cursorBefore(console.Cursor()), shapeBefore(console.CursorShape())
    {
        for (std::size_t i = 0; i < request.notes.size(); ++i)
            if (const int width = TextWidth(request.lines[i]); width <= widestAligned)
                widestLine = std::max(widestLine, width);
        alive.assign(request.lines.size(), true);
        marked.assign(request.lines.size(), request.allMarked);
        beforeBreak = std::exchange(console.beforeBreak, [this] {
            Close();
            if (beforeBreak)
                beforeBreak();
        });
        Open();
        Filter(request.chosen);
        if (shown.empty() && !filter.empty()) {
            filter.Clear();
            Filter(request.chosen);
        }
    }
    PopupList(const PopupList&) = delete;
    PopupList& operator=(const PopupList&) = delete;
    ~PopupList()
    {
        console.beforeBreak = beforeBreak;
        Close();
    }

    PopupResult Run()
    {
        if (!HasRoom()) {
            console.Beep();
            return std::move(result);
        }
        while (!done && !(shown.empty() && filter.empty())) {
            // What waits may be nothing that is told, such as the release of a key.
            ConsoleEvent event{ConsoleEventKind::TimedOut, {}, {}, 0};
            if (console.Waiting() > 0)
                event = console.Wait(0);
            if (event.kind == ConsoleEventKind::TimedOut) {
                Draw();
                event = console.Wait();
            }
            Act(event);
        }
        return std::move(result);
    }

private:
    bool HasRoom() const { return Rows() > 0 && Columns() > 0; }
    int Rows() const { return area.rows - frameRows; }
    int Columns() const { return area.columns - frameColumns; }
    int LineColumns() const { return Columns() - request.lead.cells; }
    std::size_t Line() const { return shown[bar]; }

    void Open()
    {
        const ScreenExtent extent = console.Extent();
        int widest = std::max(TextWidth(request.title) + 4, TextWidth(request.footer) + 20);
        longest = 0;
        for (std::size_t i = 0; i < request.lines.size(); ++i)
            longest = std::max(longest, TextWidth(LineText(i)));
        widest = std::max(widest, request.lead.cells + longest);
        area.columns = std::min({widest + frameColumns, request.place.columns, extent.windowColumns});
        area.rows =
            std::min({static_cast<int>(std::min<std::size_t>(request.lines.size(), 10000)) + frameRows,
                      request.place.rows, extent.windowRows});
        area.columns = std::max(area.columns, std::min(24, extent.windowColumns));
        area.left = extent.left + std::clamp(request.place.left, 0, extent.windowColumns - area.columns);
        area.top = extent.top + std::clamp(request.place.top, 0, extent.windowRows - area.rows);
        KeepOffCursor(extent);
        covered = console.ReadCells(area);
        console.ShapeCursor(0);
        console.WatchMouse(true);
        open = true;
    }

    // What is typed there stays in view if there is room for most of the window below or above it.
    void KeepOffCursor(const ScreenExtent& extent)
    {
        const int row = cursorBefore.row;
        if (row < area.top || row >= area.top + area.rows)
            return;
        const int above = row - extent.top;
        const int below = extent.top + extent.windowRows - (row + 1);
        if (3 * std::max(above, below) < 2 * area.rows)
            return;
        const bool goesBelow = below >= area.rows || below > above;
        area.rows = std::min(area.rows, goesBelow ? below : above);
        area.top = goesBelow ? row + 1 : row - area.rows;
    }

    void Close()
    {
        if (!std::exchange(open, false))
            return;
        PutBackCovered();
        console.PlaceCursor(cursorBefore);
        console.ShapeCursor(shapeBefore);
        console.WatchMouse(false);
    }

    // As much of it as a screen that has become smaller still has.
    void PutBackCovered()
    {
        const ScreenExtent extent = console.Extent();
        const int columns = std::min(area.columns, extent.columns - area.left);
        for (int row = 0; row < area.rows && area.top + row < extent.rows && columns > 0; ++row) {
            const auto first = covered.begin() + static_cast<std::ptrdiff_t>(row) * area.columns;
            console.WriteCells({area.top + row, area.left, 1, columns}, {first, first + columns});
        }
    }

    CString LineText(std::size_t line) const
    {
        CString text(request.marks ? (marked[line] ? u"\u25BA " : u"  ") : u"");
        text.Append(request.lines[line]);
        if (line < request.notes.size() && !request.notes[line].empty()) {
            const int missing = std::max(0, widestLine - TextWidth(request.lines[line]));
            text.Append(CString(static_cast<std::size_t>(missing), u' '));
            text.Append(u"  ").Append(request.notes[line]);
        }
        return text;
    }

    bool Fits(std::size_t line) const
    {
        return FitsFilter(request.lines[line],
                          line < request.places.size() ? request.places[line].view() : u"", filter);
    }

    // Finds the lines that are shown; the bar goes to `wanted`, or to the nearest line behind it.
    void Filter(std::size_t wanted)
    {
        shown.clear();
        for (std::size_t i = 0; i < request.lines.size(); ++i)
            if (alive[i] && (searching || Fits(i)))
                shown.push_back(i);
        const auto at = std::lower_bound(shown.begin(), shown.end(), wanted);
        bar = static_cast<std::size_t>(at - shown.begin());
        bar = shown.empty() ? 0 : std::min(bar, shown.size() - 1);
        top = 0;
        KeepBarVisible();
    }

    void KeepBarVisible()
    {
        const auto rows = static_cast<std::size_t>(Rows());
        const bool hidden = bar < top || bar >= top + rows;
        if (searching && hidden)
            top = bar - std::min(bar, rows / 2);
        else if (hidden)
            top = bar < top ? bar : bar - rows + 1;
        top = std::min(top, shown.size() > rows ? shown.size() - rows : 0);
    }

    void MoveBar(std::ptrdiff_t by)
    {
        const auto last = static_cast<std::ptrdiff_t>(shown.size()) - 1;
        bar = static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(static_cast<std::ptrdiff_t>(bar) + by, 0,
                                                                  std::max<std::ptrdiff_t>(last, 0)));
        KeepBarVisible();
    }

    void Draw()
    {
        if (!open) // a break closed it that came to nothing
            Open();
        DrawEdge(area.top, u'\u250C', u'\u2510', request.title, {});
        for (int row = 0; row < Rows(); ++row)
            DrawRow(row);
        const CString count =
            Format(u"%d/%d", static_cast<int>(shown.empty() ? 0 : bar + 1), static_cast<int>(shown.size()));
        const CString typed = searching ? CString(u"/") + filter.view() : filter;
        // The blanks around both take four cells.
        const int room = Columns() - TextWidth(count) - 4;
        DrawEdge(area.top + area.rows - 1, u'\u2514', u'\u2518',
                 typed.empty() ? WholeParts(request.footer, room) : typed, count);
        PlaceEditCursor();
    }

    void DrawEdge(int row, char16_t leftCorner, char16_t rightCorner, std::u16string_view left,
                  std::u16string_view right)
    {
        CString text;
        if (!left.empty())
            text.Append(u' ').Append(left).Append(u' ');
        const int room = Columns() - (right.empty() ? 0 : TextWidth(right) + 2);
        text = FitCells(text, std::max(0, std::min(room, TextWidth(text))));
        CString edge(static_cast<std::size_t>(std::max(0, room - TextWidth(text))), u'\u2500');
        edge.Insert(0, text);
        if (!right.empty())
            edge.Append(u' ').Append(right).Append(u' ');
        edge.Insert(0, std::u16string_view(&leftCorner, 1));
        edge.Append(rightCorner);
        console.WriteRun({row, area.left}, FitCells(edge, area.columns), request.colors.frame);
    }

    void DrawRow(int row)
    {
        const int screenRow = area.top + 1 + row;
        const std::size_t at = top + static_cast<std::size_t>(row);
        const bool isBar = at == bar && at < shown.size();
        CString text = at < shown.size() ? LineText(shown[at]) : CString();
        int skipped = sideways;
        CString lead;
        if (request.lead.cells > 0)
            lead = FitCells(at < shown.size() ? request.lead.text(shown[at]) : CString(), request.lead.cells);
        if (isBar && field) {
            text = field->Text();
            skipped = FieldStart();
        }
        console.WriteRun({screenRow, area.left}, u"\u2502", request.colors.frame);
        console.WriteRun({screenRow, area.left + 1},
                         FitCells(lead + FitCells(text, LineColumns(), skipped).view(), Columns()),
                         isBar ? request.colors.bar : request.colors.text);
        console.WriteRun({screenRow, area.left + area.columns - 1}, u"\u2502", request.colors.frame);
    }

    int FieldStart() const { return std::max(0, field->CursorCell() - LineColumns() + 1); }

    void PlaceEditCursor()
    {
        if (field)
            console.PlaceCursor({area.top + 1 + static_cast<int>(bar - top),
                                 area.left + 1 + request.lead.cells + field->CursorCell() - FieldStart()});
    }

    void Act(const ConsoleEvent& event)
    {
        switch (event.kind) {
        case ConsoleEventKind::None: done = true; break;
        case ConsoleEventKind::TimedOut: break;
        case ConsoleEventKind::Key: TakeKey(event.key); break;
        case ConsoleEventKind::Press: TakePress(event.press); break;
        case ConsoleEventKind::Wheel:
            if (request.wheel)
                MoveBar(-event.wheel * wheelStep);
            break;
        case ConsoleEventKind::Resized:
            Close();
            Open();
            KeepBarVisible();
            done = !HasRoom();
            break;
        }
    }

    void TakeKey(const KeyPress& key)
    {
        const CString name = NameOfKey(key);
        if (name == u"Ctrl-C")
            return console.Break();
        if (field)
            return TakeFieldKey(key, name);
        if (!IsPlainKey(name) && TakeBoundKey(name))
            return;
        if (TakeMovingKey(name) || (request.marks && TakeMarkingKey(key, name)))
            return;
        if (name == u"Esc")
            done = true;
        else if (name == u"Backspace" && !filter.empty())
            ChangeFilter(filter.Substr(0, PreviousCharacter(filter, filter.size())));
        else if (TypesCharacter(key))
            ChangeFilter(filter + std::u16string_view(&key.unit, 1));
        else
            console.Beep();
    }

    bool IsPlainKey(std::u16string_view name) const
    {
        const std::u16string_view keys = request.plainKeys;
        for (std::size_t at = 0; at < keys.size();) {
            const Word word = NextBlankWord(keys, at);
            if (EqualNoCase(keys.substr(word.start, word.length), name))
                return true;
            at = std::max(word.end(), at + 1);
        }
        return false;
    }

    bool TakeBoundKey(std::u16string_view name)
    {
        const int function = aKeyBindings.FindKeyFunction(request.keys, name);
        if (function < 0)
            return false;
        const std::u16string_view what = aKeyFunctions[static_cast<std::size_t>(function)].name;
        if (shown.empty())
            console.Beep();
        else if (what == u"PopupWinSelect")
            Finish(PopupAction::Selected);
        else if (what == u"PopupWinEdit" || what == u"XHistEdit")
            Finish(request.mayEdit ? PopupAction::ToCommandLine : PopupAction::Selected);
        else if ((what == u"PopupWinDel" || what == u"XHistDelete") && request.mayDelete)
            DeleteLine();
        else if (what == u"XHistSearch")
            Search();
        else if (what == u"PopupWinEditWin" && request.mayChange)
            field.emplace(request.lines[Line()]);
        else
            console.Beep();
        if (field)
            console.ShapeCursor(fieldCursor);
        return true;
    }

    bool TakeMovingKey(std::u16string_view name)
    {
        const std::ptrdiff_t page = Rows();
        const auto all = static_cast<std::ptrdiff_t>(shown.size());
        if (name == u"Down" || name == u"Tab")
            MoveBar(1);
        else if (name == u"Up" || name == u"Shift-Tab")
            MoveBar(-1);
        else if (name == u"PgDn")
            MoveBar(page);
        else if (name == u"PgUp")
            MoveBar(-page);
        else if (name == u"Home" || name == u"Ctrl-Home" || name == u"Ctrl-PgUp")
            MoveBar(-all);
        else if (name == u"End" || name == u"Ctrl-End" || name == u"Ctrl-PgDn")
            MoveBar(all);
        else if (name == u"Right")
            sideways += sideways + sideStep < longest ? sideStep : 0;
        else if (name == u"Left")
            sideways = std::max(0, sideways - sideStep);
        else
            return false;
        return true;
    }

    bool TakeMarkingKey(const KeyPress& key, std::u16string_view name)
    {
        if (shown.empty())
            return false;
        if (key.unit == u' ' || name == u"Ins" || key.unit == u'+' || key.unit == u'-') {
            marked[Line()] = key.unit == u'+' || (key.unit != u'-' && !marked[Line()]);
            MoveBar(1);
        } else if (key.unit == u'*') {
            for (const std::size_t line : shown)
                marked[line] = !marked[line];
        } else if (key.unit == u'/') {
            marked.assign(marked.size(), false);
        } else {
            return false;
        }
        return true;
    }

    void TakeFieldKey(const KeyPress& key, std::u16string_view name)
    {
        if (name == u"Enter" && field->Text().empty())
            return console.Beep();
        if (name == u"Enter") {
            result.edited.emplace_back(Line(), field->Text());
            request.lines[Line()] = field->Text();
        } else if (name != u"Esc") {
            if (!field->Take(key, name))
                console.Beep();
            return;
        }
        field.reset();
        console.ShapeCursor(0);
    }

    void TakePress(const MousePress& press)
    {
        const int row = press.row - area.top - 1;
        const bool inside = row >= 0 && row < Rows() && press.column > area.left &&
                            press.column < area.left + area.columns - 1;
        if (field)
            return;
        if (!inside) {
            done = true;
            return;
        }
        const std::size_t line = top + static_cast<std::size_t>(row);
        if (line >= shown.size())
            return;
        bar = line;
        if (request.marks && press.button == MouseButton::Right)
            marked[Line()] = !marked[Line()];
        else if (press.twice)
            Finish(PopupAction::Selected);
    }

    void ChangeFilter(CString text)
    {
        const std::size_t wanted = shown.empty() ? request.chosen : Line();
        filter = std::move(text);
        if (searching)
            return FindUpwards(bar + 1);
        Filter(wanted);
        if (request.names && !filter.empty())
            GoToName();
        if (shown.empty())
            console.Beep();
    }

    // Of names the one that has been typed is meant, or else most likely the first that begins so.
    void GoToName()
    {
        std::optional<std::size_t> begins;
        for (std::size_t i = 0; i < shown.size(); ++i) {
            const CString& line = request.lines[shown[i]];
            if (!BeginsNoCase(line, filter))
                continue;
            if (!begins || line.size() == filter.size())
                begins = i;
        }
        if (begins) {
            bar = *begins;
            KeepBarVisible();
        }
    }

    // What a filter has found is seen among its neighbours; once more, and the bar goes to the next one.
    void Search()
    {
        if (searching && !filter.empty())
            return FindUpwards(bar);
        searching = !searching;
        Filter(Line());
    }

    // The bar goes to the lowest line above `below` that holds what has been typed.
    void FindUpwards(std::size_t below)
    {
        for (below = std::min(below, shown.size()); below-- > 0;)
            if (Fits(shown[below])) {
                bar = below;
                return KeepBarVisible();
            }
        console.Beep();
    }

    void DeleteLine()
    {
        const std::size_t line = Line();
        alive[line] = false;
        marked[line] = false;
        result.deleted.push_back(line);
        const std::size_t before = top;
        Filter(line);
        top = before;
        KeepBarVisible();
    }

    void Finish(PopupAction action)
    {
        result.action = action;
        result.line = Line();
        result.text = request.lines[Line()];
        for (std::size_t line = 0; line < marked.size(); ++line)
            if (marked[line])
                result.marked.push_back(line);
        if (result.marked.empty())
            result.marked.push_back(Line());
        done = true;
    }

    EditorConsole& console;
    PopupRequest request;
    CString filter;
    ScreenPlace cursorBefore;
    int shapeBefore;
    ScreenArea area;
    std::vector<ScreenCell> covered;
    std::vector<bool> alive;
    std::vector<bool> marked;
    std::vector<std::size_t> shown; // lines of the request
    std::size_t bar = 0;            // among the shown
    std::size_t top = 0;
    int sideways = 0; // cells
    bool searching = false;
    int widestLine = 0; // of those with notes
    int longest = 0;    // with marks and notes
    std::optional<LineField> field;
    PopupResult result;
    std::function<void()> beforeBreak; // the console's own
    bool open = false;
    bool done = false;
};

} // namespace

CString FitCells(std::u16string_view text, int cells, int skipped)
{
    CString fitted;
    int used = -skipped;
    for (std::size_t at = 0; at < text.size() && used < cells;) {
        const std::size_t end = NextCharacter(text, at);
        std::u16string_view character = text.substr(at, end - at);
        if (character[0] < u' ' || character[0] == 0x7F)
            character = u"\u00B7";
        const int width = TextWidth(character);
        if (used >= 0 && used + width <= cells)
            fitted += character;
        else
            for (int cell = std::max(used, 0); cell < std::min(used + width, cells); ++cell)
                fitted += u' ';
        used += width;
        at = end;
    }
    for (used = std::max(used, 0); used < cells; ++used)
        fitted += u' ';
    return fitted;
}

PopupResult RunPopupList(EditorConsole& console, PopupRequest request)
{
    if (request.lines.empty())
        return {};
    return PopupList(console, std::move(request)).Run();
}
