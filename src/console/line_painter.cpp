#include "console/line_painter.h"

#include <algorithm>

namespace {

// Equal cells between two changed ones are written along with them up to this many: another write costs more.
constexpr std::size_t shortGap = 4;

PictureCell Blank(unsigned colors)
{
    PictureCell cell;
    cell.colors = static_cast<std::uint8_t>(colors);
    return cell;
}

} // namespace

void LinePainter::Begin()
{
    extent = console.Extent();
    plain = console.Attributes();
    origin = console.Cursor();
    LeaveFullRow();
    firstRow = 0;
    shownCursorRow = brokenRows = 0;
    shownCursorColumn = origin.column;
    prompt.clear();
    shown.assign(1, PictureRow(static_cast<std::size_t>(origin.column), PictureCell()));
}

// Where sequences are obeyed the cursor stands on the last character of a prompt that fills its row, and
// would go on to the next one only with what is written there.
void LinePainter::LeaveFullRow()
{
    if (origin.column == 0 || origin.column != extent.columns - 1)
        return;
    const std::vector<ScreenCell> last = console.ReadCells({origin.row, origin.column, 1, 1});
    if (last.empty() || last[0].unit == u' ')
        return;
    origin = {origin.row + 1 - console.MakeRoom(origin.row + 1), 0};
    console.PlaceCursor(origin);
}

void LinePainter::ClearRow()
{
    const ScreenPlace place = console.Cursor();
    const int columns = console.Extent().columns;
    if (place.column != 0)
        return;
    const std::vector<ScreenCell> cells = console.ReadCells({place.row, 0, 1, columns});
    if (std::all_of(cells.begin(), cells.end(), [](const ScreenCell& cell) { return cell.unit == u' '; }))
        return;
    console.WriteRun(place, CString(static_cast<std::size_t>(columns), u' '), console.Attributes());
    console.PlaceCursor(place);
}

void LinePainter::Complete(PictureRequest& request) const
{
    request.indent = origin.column;
    request.columns = std::max(1, extent.columns);
    request.rows = std::max(1, std::min(extent.windowRows, extent.rows));
    // The screen does not scroll for what nobody has typed.
    request.suggestionRows = std::min(extent.top + extent.windowRows, extent.rows) - origin.row;
    request.firstRow = firstRow;
}

// The prompt's last row, before the text covers it.
void LinePainter::KeepPrompt()
{
    if (!prompt.empty() || origin.column == 0)
        return;
    for (const ScreenCell& cell : console.ReadCells({origin.row, 0, 1, origin.column})) {
        PictureCell kept = Blank(cell.attributes & 0xFF);
        kept.units = {cell.unit < u' ' ? u' ' : cell.unit};
        prompt.push_back(kept);
    }
    prompt.resize(static_cast<std::size_t>(origin.column), Blank(plain));
    PictureRow& first = shown.front();
    first.resize(std::max(first.size(), prompt.size()), Blank(plain));
    std::copy(prompt.begin(), prompt.end(), first.begin());
}

void LinePainter::Show(const LinePicture& picture)
{
    if (picture.firstRow > 0)
        KeepPrompt();
    const int rows = static_cast<int>(picture.rows.size());
    if (rows > static_cast<int>(shown.size()))
        origin.row -= console.MakeRoom(origin.row + rows - 1);
    firstRow = picture.firstRow;
    const int painted = std::max(rows, static_cast<int>(shown.size()));
    shown.resize(static_cast<std::size_t>(painted));
    for (int row = 0; row < painted; ++row) {
        PictureRow wanted;
        if (row == 0 && firstRow == 0)
            wanted = prompt.empty() ? PictureRow(static_cast<std::size_t>(origin.column)) : prompt;
        if (row < rows) {
            const PictureRow& text = picture.rows[static_cast<std::size_t>(row)];
            wanted.insert(wanted.end(), text.begin(), text.end());
        }
        PaintRow(row, wanted);
    }
    shown.resize(static_cast<std::size_t>(std::max(rows, 1)));
    shownCursorRow = picture.cursorRow;
    shownCursorColumn = std::min(picture.cursorColumn, extent.columns - 1);
    console.PlaceCursor({origin.row + shownCursorRow, shownCursorColumn});
}

void LinePainter::PaintRow(int row, const PictureRow& wanted)
{
    PictureRow& there = shown[static_cast<std::size_t>(row)];
    if (there == wanted)
        return;
    PictureRow cells = wanted;
    const std::size_t width = std::max(cells.size(), there.size());
    cells.resize(width, Blank(plain));
    there.resize(width, Blank(plain));
    for (std::size_t at = 0; at < width;) {
        if (cells[at] == there[at]) {
            ++at;
            continue;
        }
        std::size_t end = at + 1;
        for (std::size_t i = end; i < width && i < end + shortGap; ++i)
            if (cells[i] != there[i])
                end = i + 1;
        while (at > 0 && cells[at].count == 0) // never half of a wide character
            --at;
        while (end < width && cells[end].count == 0)
            ++end;
        WriteCells(row, static_cast<int>(at), cells, at, end);
        at = end;
    }
    there = wanted;
}

void LinePainter::WriteCells(int row, int column, const PictureRow& cells, std::size_t from, std::size_t to)
{
    std::u16string run;
    int begin = column;
    for (std::size_t at = from; at < to; ++at) {
        run.append(cells[at].units.data(), cells[at].count);
        ++column;
        if (at + 1 < to && (cells[at + 1].colors == cells[at].colors || cells[at + 1].count == 0))
            continue;
        console.WriteRun({origin.row + row, begin}, run, cells[at].colors);
        run.clear();
        begin = column;
    }
}

void LinePainter::Erase(bool withPrompt, int promptRows)
{
    const bool first = firstRow == 0;
    const int top = std::max(0, origin.row - (first && withPrompt ? promptRows : 0));
    const int left = first && !withPrompt ? std::min(origin.column, extent.columns - 1) : 0;
    const int bottom =
        std::min(extent.rows, origin.row + std::max(static_cast<int>(shown.size()), brokenRows));
    for (int row = top; row < bottom; ++row) {
        const int from = row == top ? left : 0;
        console.WriteRun({row, from}, CString(static_cast<std::size_t>(extent.columns - from), u' '), plain);
    }
    console.PlaceCursor({top, left});
}

void LinePainter::MoveBehind(bool endsInEmptyRow)
{
    const int last = origin.row + static_cast<int>(shown.size()) - 1;
    console.PlaceCursor({endsInEmptyRow ? std::max(0, last - 1) : last, 0});
}

// Whether the first row that was shown stands there, broken at the present width.
bool LinePainter::IsTextBrokenFrom(int row, int cursorColumn) const
{
    constexpr int enough = 16; // cells
    int compared = 0;
    const int begin = firstRow == 0 ? origin.column : 0;
    for (int at = begin; at < static_cast<int>(shown.front().size()) && compared < enough; ++at) {
        const PictureCell& cell = shown.front()[static_cast<std::size_t>(at)];
        const int cellRow = row + at / extent.columns;
        if (cellRow < 0 || cellRow >= extent.rows)
            return false;
        const auto there = console.ReadCells({cellRow, at % extent.columns, 1, 1});
        if (cell.count > 0 && (there.empty() || there.front().unit != cell.units[0]))
            return false;
        ++compared;
    }
    return compared > 0 || cursorColumn == shownCursorColumn % extent.columns;
}

// The console may have moved the row of the cursor, and may have broken rows that are too long now.
bool LinePainter::TakeNewSize()
{
    const ScreenExtent before = extent;
    extent = console.Extent();
    extent.columns = std::max(1, extent.columns);
    const ScreenPlace cursor = console.Cursor();
    int above = shownCursorColumn / extent.columns;
    int all = 0;
    for (int row = 0; row < static_cast<int>(shown.size()); ++row) {
        const int cells = static_cast<int>(shown[static_cast<std::size_t>(row)].size());
        const int broken = std::max(1, (cells + extent.columns - 1) / extent.columns);
        all += broken;
        above += row < shownCursorRow ? broken : 0;
    }
    const bool isBroken = IsTextBrokenFrom(cursor.row - above, cursor.column);
    brokenRows = isBroken ? all : 0;
    origin.row = std::max(0, cursor.row - (isBroken ? above : shownCursorRow));
    return extent.columns != before.columns || extent.windowRows != before.windowRows;
}
