#include "commands/drawing.h"

#include <algorithm>

#include "commands/screen_arguments.h"
#include "core/command_switches.h"
#include "engine/break.h"
#include "engine/output.h"
#include "engine/results.h"
#include "lang/console_messages.h"
#include "platform/console_drawing.h"
#include "text/cell_width.h"
#include "text/line_drawing.h"

#define PLACES                                                                                               \
    u"Rows and columns count from 0 at the upper left corner of what is shown of the screen. +n and -n "     \
    u"count from the cursor, and 999 stands for the middle. "

const CommandHelp screenHelp = {
    u"Moves the cursor, and may write a text there.",
    u"SCREEN row column [text]",
    PLACES u"The text is written as ECHOS does; quotes around all of it are not part of it.",
    u"screen 0 0\n"
    u"screen 10 999 Please wait\n"
    u"screen +2 0",
};

const CommandHelp scrputHelp = {
    u"Writes a text at a place of the screen and leaves the cursor where it is.",
    u"SCRPUT row column [color on color] text",
    PLACES u"Quotes around the whole text are not part of it. What does not fit into the row is cut off. "
           u"COLOR tells the names of the colors.",
    u"scrput 2 10 bright white on blue Name:\n"
    u"scrput 999 999 \" The middle \"",
};

const CommandHelp vscrputHelp = {
    u"Writes a text from top to bottom and leaves the cursor where it is.",
    u"VSCRPUT row column [color on color] text",
    PLACES u"Quotes around the whole text are not part of it. What does not fit above the last row is cut "
           u"off. COLOR tells the names of the colors.",
    u"vscrput 2 10 bright white on blue Names",
};

const CommandHelp drawboxHelp = {
    u"Draws a box on the screen.",
    u"DRAWBOX top left bottom right style [color on color] [FILL color] [ZOOM] [SHADOW]",
    u"FILL    the inside is cleared and gets this background\n"
    u"ZOOM    the box grows from its middle\n"
    u"SHADOW  a shadow falls to the right and below; three letters of these words are enough\n"
    u"The style is 0 without lines, 1 single, 2 double, 3 single with double sides, 4 double with single "
    u"sides. Lines that meet others on the screen are joined with them. " //
    PLACES u"With a top of 999 the bottom is the number of rows, with a left of 999 the right the number of "
    u"columns. The cursor stays where it is.",
    u"drawbox 5 10 15 70 2 bright white on blue fill blue shadow\n"
    u"drawbox 999 999 7 40 1 yellow on black zoom",
};

#define LINES                                                                                                \
    u"The style is 1 single or 2 double. A line that meets others on the screen is joined with them. What "  \
    u"does not fit on the screen is cut off. " PLACES u"The cursor stays where it is."

const CommandHelp drawhlineHelp = {
    u"Draws a line from left to right on the screen.",
    u"DRAWHLINE row column length style [color on color]",
    LINES,
    u"drawhline 3 0 80 1 white on black",
};

const CommandHelp drawvlineHelp = {
    u"Draws a line from top to bottom on the screen.",
    u"DRAWVLINE row column length style [color on color]",
    LINES,
    u"drawvline 0 40 25 2 white on black",
};

namespace {

constexpr int longestLine = 32767;
constexpr unsigned shadowColors = 8; // bright black on black
constexpr int shadowWidth = 2;       // cells are twice as high as wide
constexpr int zoomSteps = 8;
constexpr std::uint64_t zoomPause = 20; // milliseconds

struct DrawnArea {
    int row = 0;
    int column = 0;
    int rows = 0;
    int columns = 0;
};

// The cells of an area of the screen, to be changed and put back.
class DrawnCells {
public:
    bool Read(const DrawnArea& from)
    {
        area = from;
        cells = ReadConsoleCells(area.row, area.column, area.rows, area.columns);
        return !cells.empty();
    }
    bool Write() const { return WriteConsoleCells(area.row, area.column, area.rows, area.columns, cells); }

    const DrawnArea& Area() const { return area; }
    // Places within the area.
    ConsoleCell& At(int row, int column)
    {
        return cells[static_cast<std::size_t>(row) * static_cast<std::size_t>(area.columns) +
                     static_cast<std::size_t>(column)];
    }
    // Marks of characters that take two cells stay.
    void Paint(int row, int column, unsigned attributes)
    {
        constexpr unsigned colorBits = 0xFF;
        ConsoleCell& cell = At(row, column);
        cell.attributes = (cell.attributes & ~colorBits) | (attributes & colorBits);
    }

private:
    DrawnArea area;
    std::vector<ConsoleCell> cells;
};

struct PlaceArguments {
    PlaceArgument row;
    PlaceArgument column;
};

int TakePlaces(ScreenArguments& arguments, PlaceArguments& places)
{
    const int code = arguments.TakePlace(places.row);
    return code ? code : arguments.TakePlace(places.column);
}

struct PutText {
    PlaceArguments at;
    std::optional<unsigned> colors;
    CString text;
};

int ReadPutText(CString& arguments, PutText& put)
{
    ScreenArguments reader(arguments);
    if (const int code = TakePlaces(reader, put.at))
        return code;
    if (const int code = reader.TakeColors(put.colors))
        return code;
    put.text = reader.Text();
    return put.text.empty() ? UsageError() : result::success;
}

// As many whole characters as fit into so many cells.
std::u16string_view FittingPart(std::u16string_view text, int cells)
{
    std::size_t end = 0;
    for (std::size_t next = 0; end < text.size(); end = next) {
        next = NextCharacter(text, end);
        cells -= TextWidth(text.substr(end, next - end));
        if (cells < 0)
            break;
    }
    return text.substr(0, end);
}

struct LineRequest {
    PlaceArguments at;
    int length = 0;
    LineWeight weight = LineWeight::Single;
    std::optional<unsigned> colors;
};

int ReadLineRequest(CString& arguments, LineRequest& line)
{
    ScreenArguments reader(arguments);
    int style = 1;
    if (const int code = TakePlaces(reader, line.at))
        return code;
    if (const int code = reader.TakeNumber(line.length, 1, longestLine))
        return code;
    if (const int code = reader.TakeNumber(style, 1, 2))
        return code;
    line.weight = style == 2 ? LineWeight::Double : LineWeight::Single;
    if (const int code = reader.TakeColors(line.colors))
        return code;
    return reader.AtEnd() ? result::success : MVError(errors::invalidColor, reader.Text());
}

// At its ends a line has one arm where it meets another, and both where it ends by itself.
int DrawLine(const LineRequest& line, const ScreenFacts& screen, DrawnArea area, bool across)
{
    DrawnCells cells;
    if (!cells.Read(area))
        return MVError(0);
    const int length = across ? area.columns : area.rows;
    for (int i = 0; i < length; ++i) {
        const int row = across ? 0 : i;
        const int column = across ? i : 0;
        ConsoleCell& cell = cells.At(row, column);
        const bool meets = ArmsOf(cell.unit).arms != 0;
        LineArms arms = {across ? arm::horizontal : arm::vertical, line.weight, line.weight};
        if (meets && i == 0 && length > 1)
            arms.arms = across ? arm::right : arm::down;
        else if (meets && i == length - 1 && length > 1)
            arms.arms = across ? arm::left : arm::up;
        cell.unit = JoinLine(arms, cell.unit);
        cells.Paint(row, column, line.colors.value_or(screen.attributes));
    }
    return cells.Write() ? result::success : MVError(0);
}

int DrawRequestedLine(CString& arguments, bool across)
{
    LineRequest line;
    if (const int code = ReadLineRequest(arguments, line))
        return code;
    const auto screen = ReadScreenFacts();
    if (!screen)
        return result::success;
    DrawnArea area;
    if (const int code = ResolveRow(*screen, line.at.row, across ? 1 : line.length, area.row))
        return code;
    if (const int code = ResolveColumn(*screen, line.at.column, across ? line.length : 1, area.column))
        return code;
    area.rows = across ? 1 : std::min(line.length, screen->windowTop + screen->windowRows - area.row);
    area.columns =
        across ? std::min(line.length, screen->windowLeft + screen->windowColumns - area.column) : 1;
    return DrawLine(line, *screen, area, across);
}

struct BoxRequest {
    PlaceArguments corner;
    PlaceArguments opposite;
    int style = 0;
    std::optional<unsigned> colors;
    std::optional<unsigned> fill;
    bool zoom = false;
    bool shadow = false;
};

int ReadBoxRequest(CString& arguments, BoxRequest& box)
{
    ScreenArguments reader(arguments);
    if (const int code = TakePlaces(reader, box.corner))
        return code;
    if (const int code = TakePlaces(reader, box.opposite))
        return code;
    if (const int code = reader.TakeNumber(box.style, 0, 4))
        return code;
    if (const int code = reader.TakeColors(box.colors))
        return code;
    while (!reader.AtEnd()) {
        if (reader.TakeWord(u"FILL")) {
            if (const int code = reader.TakeColor(box.fill))
                return code;
        } else if (reader.TakeWord(u"ZOOM")) {
            box.zoom = true;
        } else if (reader.TakeWord(u"SHADOW")) {
            box.shadow = true;
        } else {
            return MVError(errors::syntax, reader.Text());
        }
    }
    return result::success;
}

int PlaceBox(const ScreenFacts& screen, const BoxRequest& box, DrawnArea& area)
{
    const bool middleRow = box.corner.row.kind == PlaceArgument::Kind::Centered;
    const bool middleColumn = box.corner.column.kind == PlaceArgument::Kind::Centered;
    area.rows = box.opposite.row.value;
    area.columns = box.opposite.column.value;
    if (const int code = ResolveRow(screen, box.corner.row, area.rows, area.row))
        return code;
    if (const int code = ResolveColumn(screen, box.corner.column, area.columns, area.column))
        return code;
    int bottom = area.row + area.rows - 1;
    int right = area.column + area.columns - 1;
    if (!middleRow)
        if (const int code = ResolveRow(screen, box.opposite.row, 1, bottom))
            return code;
    if (!middleColumn)
        if (const int code = ResolveColumn(screen, box.opposite.column, 1, right))
            return code;
    area.rows = bottom - area.row + 1;
    area.columns = right - area.column + 1;
    const CString size = Format(u"%d %d", box.opposite.row.value, box.opposite.column.value);
    if (area.rows <= 0 || area.columns <= 0)
        return MVError(errors::boxCorners, size);
    const bool fits =
        bottom < screen.windowTop + screen.windowRows && right < screen.windowLeft + screen.windowColumns;
    return fits ? result::success : MVError(errors::offScreen, size);
}

// A box within the cells that have been read for it.
class BoxDrawing {
public:
    BoxDrawing(const BoxRequest& wanted, unsigned colors) : box(wanted), attributes(colors) {}

    void Draw(DrawnCells& cells, int top, int left, int rows, int columns) const
    {
        for (int row = 0; row < rows; ++row)
            for (int column = 0; column < columns; ++column)
                DrawCell(cells, {top, left, rows, columns}, row, column);
    }

    static void DrawShadow(DrawnCells& cells, int rows, int columns)
    {
        for (int row = 1; row <= rows && row < cells.Area().rows; ++row)
            for (int column = row == rows ? shadowWidth : columns;
                 column < columns + shadowWidth && column < cells.Area().columns; ++column)
                cells.Paint(row, column, shadowColors);
    }

private:
    void DrawCell(DrawnCells& cells, const DrawnArea& at, int row, int column) const
    {
        const bool top = row == 0;
        const bool bottom = row == at.rows - 1;
        const bool left = column == 0;
        const bool right = column == at.columns - 1;
        ConsoleCell& cell = cells.At(at.row + row, at.column + column);
        const bool edge = top || bottom || left || right;
        if (!edge && !box.fill)
            return;
        const bool lines = box.style != 0 && edge;
        cell.unit = lines ? EdgeCharacter(cell.unit, top, bottom, left, right) : u' ';
        cells.Paint(at.row + row, at.column + column,
                    box.fill && !lines ? *box.fill * 16 + (attributes & 15) : attributes);
    }

    char16_t EdgeCharacter(char16_t old, bool top, bool bottom, bool left, bool right) const
    {
        LineArms line;
        line.horizontal = box.style == 2 || box.style == 4 ? LineWeight::Double : LineWeight::Single;
        line.vertical = box.style == 2 || box.style == 3 ? LineWeight::Double : LineWeight::Single;
        if (top || bottom)
            line.arms |= (left ? 0 : arm::left) | (right ? 0 : arm::right);
        if (left || right)
            line.arms |= (top ? 0 : arm::up) | (bottom ? 0 : arm::down);
        unsigned kept = arm::vertical | arm::horizontal;
        if (box.fill) // what led inside is gone
            kept &= ~((top ? arm::down : 0) | (bottom ? arm::up : 0) | (left ? arm::right : 0) |
                      (right ? arm::left : 0));
        return JoinLine(line, old, kept);
    }

    const BoxRequest& box;
    unsigned attributes;
};

int DrawBox(const BoxRequest& box, const ScreenFacts& screen, const DrawnArea& area)
{
    DrawnArea touched = area;
    if (box.shadow) {
        touched.rows = std::min(area.rows + 1, screen.rows - area.row);
        touched.columns = std::min(area.columns + shadowWidth, screen.columns - area.column);
    }
    DrawnCells before;
    if (!before.Read(touched))
        return MVError(0);
    const BoxDrawing drawing(box, box.colors.value_or(screen.attributes));
    for (int step = 1; box.zoom && step < zoomSteps; ++step) {
        DrawnCells cells = before;
        const int rows = std::max(1, area.rows * step / zoomSteps);
        const int columns = std::max(1, area.columns * step / zoomSteps);
        drawing.Draw(cells, (area.rows - rows) / 2, (area.columns - columns) / 2, rows, columns);
        if (!cells.Write())
            return MVError(0);
        SleepOrBreak(zoomPause);
    }
    drawing.Draw(before, 0, 0, area.rows, area.columns);
    if (box.shadow)
        BoxDrawing::DrawShadow(before, area.rows, area.columns);
    return before.Write() ? result::success : MVError(0);
}

// Where a text that takes so many rows and columns begins.
int ResolvePlace(const ScreenFacts& screen, const PutText& put, int rows, int columns, int& row, int& column)
{
    if (const int code = ResolveRow(screen, put.at.row, rows, row))
        return code;
    return ResolveColumn(screen, put.at.column, columns, column);
}

} // namespace

int Screen_Command(CString& arguments)
{
    ScreenArguments reader(arguments);
    PlaceArguments places;
    if (const int code = TakePlaces(reader, places))
        return code;
    const CString text = reader.Text();
    if (const auto screen = ReadScreenFacts()) {
        int row = 0;
        int column = 0;
        if (const int code = ResolveRow(*screen, places.row, 1, row))
            return code;
        if (const int code = ResolveColumn(*screen, places.column, TextWidth(text), column))
            return code;
        if (!MoveCursor(row, column))
            return MVError(0);
    }
    return text.empty() || Print(text) ? result::success : MVError(0);
}

int Scrput_Command(CString& arguments)
{
    PutText put;
    if (const int code = ReadPutText(arguments, put))
        return code;
    const auto screen = ReadScreenFacts();
    if (!screen)
        return result::success;
    int row = 0;
    int column = 0;
    if (const int code = ResolvePlace(*screen, put, 1, TextWidth(put.text), row, column))
        return code;
    const int room = screen->windowLeft + screen->windowColumns - column;
    return WriteScreenText(row, column, FittingPart(put.text, room), put.colors.value_or(screen->attributes))
               ? result::success
               : MVError(0);
}

int Vscrput_Command(CString& arguments)
{
    PutText put;
    if (const int code = ReadPutText(arguments, put))
        return code;
    const auto screen = ReadScreenFacts();
    if (!screen)
        return result::success;
    int row = 0;
    int column = 0;
    if (const int code = ResolvePlace(*screen, put, static_cast<int>(put.text.size()), 1, row, column))
        return code;
    const int end = screen->windowTop + screen->windowRows;
    const int room = screen->windowLeft + screen->windowColumns - column;
    const std::u16string_view text = put.text;
    for (std::size_t at = 0; at < text.size() && row < end; ++row) {
        const std::size_t next = NextCharacter(text, at);
        if (!WriteScreenText(row, column, FittingPart(text.substr(at, next - at), room),
                             put.colors.value_or(screen->attributes)))
            return MVError(0);
        at = next;
    }
    return result::success;
}

int Drawbox_Command(CString& arguments)
{
    BoxRequest box;
    if (const int code = ReadBoxRequest(arguments, box))
        return code;
    const auto screen = ReadScreenFacts();
    if (!screen)
        return result::success;
    DrawnArea area;
    const int code = PlaceBox(*screen, box, area);
    return code ? code : DrawBox(box, *screen, area);
}

int Drawhline_Command(CString& arguments) { return DrawRequestedLine(arguments, true); }
int Drawvline_Command(CString& arguments) { return DrawRequestedLine(arguments, false); }
