#include "console/line_picture.h"

#include <algorithm>

#include "text/cell_width.h"
#include "text/code_points.h"

namespace {

constexpr char16_t firstSpecial = 0x300;

// One character as it is shown.
struct Shown {
    std::size_t end = 0; // behind its last unit
    int width = 1;
};

Shown Measure(std::u16string_view text, std::size_t at, const PictureRequest& request)
{
    const char16_t unit = text[at];
    if (unit >= u' ' && unit < firstSpecial && unit != 0x7F) {
        const bool marked = at + 1 < text.size() && text[at + 1] >= firstSpecial;
        return {marked ? NextCharacter(text, at) : at + 1, 1};
    }
    if (request.hidden)
        return {NextCharacter(text, at), 1};
    if (unit < u' ' || unit == 0x7F)
        return {at + 1, std::min(2, request.columns)};
    std::size_t last = at;
    const int width = CellWidth(CodePointAt(text, last));
    return {NextCharacter(text, at), std::clamp(width, 1, request.columns)};
}

// The rows of a text: where each begins, in units.
class Rows {
public:
    Rows(std::u16string_view cutText, const PictureRequest& of) : text(cutText), request(of) { Cut(); }

    int Count() const { return static_cast<int>(begins.size()); }
    std::size_t Begin(int row) const { return begins[static_cast<std::size_t>(row)]; }
    std::size_t End(int row) const { return row + 1 < Count() ? Begin(row + 1) : text.size(); }
    int RowOf(std::size_t at) const
    {
        const auto behind = std::upper_bound(begins.begin(), begins.end(), at);
        return static_cast<int>(behind - begins.begin()) - 1;
    }
    int Indent(int row) const { return row == 0 ? request.indent : 0; }
    int ColumnOf(int row, std::size_t at) const
    {
        int column = Indent(row);
        for (std::size_t i = Begin(row); i < at;) {
            const Shown shown = Measure(text, i, request);
            column += shown.width;
            i = shown.end;
        }
        return column;
    }

private:
    void Cut();

    std::u16string_view text;
    const PictureRequest& request;
    std::vector<std::size_t> begins;
};

void Rows::Cut()
{
    begins.push_back(0);
    int column = request.indent;
    for (std::size_t at = 0; at < text.size();) {
        if (text[at] == u'\n' && !request.hidden) {
            if (column >= request.columns) // the cursor in front of it, too
                begins.push_back(at);
            begins.push_back(++at);
            column = 0;
            continue;
        }
        const Shown shown = Measure(text, at, request);
        if (column + shown.width > request.columns) {
            begins.push_back(at);
            column = 0;
        }
        column += shown.width;
        at = shown.end;
    }
    if (column >= request.columns) // the cursor behind a full row stands in one of its own
        begins.push_back(text.size());
}

class Drawing {
public:
    Drawing(std::u16string_view shownText, const PictureRequest& of) : text(shownText), request(of) {}

    PictureRow Row(std::size_t begin, std::size_t end);

private:
    std::uint8_t ColorsAt(std::size_t at);
    void Add(PictureRow& row, std::size_t at, const Shown& shown);

    std::u16string_view text;
    const PictureRequest& request;
    std::size_t run = 0; // of request.colors
};

std::uint8_t Drawing::ColorsAt(std::size_t at)
{
    if (at >= request.selectionBegin && at < request.selectionEnd)
        return request.selectionColors;
    if (at >= request.text.size())
        return request.suggestionColors;
    if (!request.colors)
        return request.plain;
    while (run < request.colors->size() && (*request.colors)[run].end <= at)
        ++run;
    return run < request.colors->size() ? (*request.colors)[run].colors : request.plain;
}

void Drawing::Add(PictureRow& row, std::size_t at, const Shown& shown)
{
    PictureCell cell;
    cell.colors = ColorsAt(at);
    const char16_t unit = text[at];
    if (request.hidden)
        cell.units = {u'*'};
    else if (unit < u' ' || unit == 0x7F) {
        cell.units = {u'^'};
        row.push_back(cell);
        if (shown.width == 1)
            return;
        cell.units = {static_cast<char16_t>(unit ^ 0x40)};
    } else {
        // A mark without a letter stands on a blank: else it would join what is in front of the line.
        std::size_t last = at;
        const std::size_t blank = unit >= firstSpecial && CellWidth(CodePointAt(text, last)) == 0 ? 1 : 0;
        const std::u16string_view units =
            text.substr(at, std::min(shown.end - at, cell.units.size() - blank));
        std::copy(units.begin(), units.end(), cell.units.begin() + blank);
        cell.count = static_cast<std::uint8_t>(units.size() + blank);
        row.push_back(cell);
        if (shown.width == 1)
            return;
        cell.units = {};
        cell.count = 0;
    }
    row.push_back(cell);
}

PictureRow Drawing::Row(std::size_t begin, std::size_t end)
{
    PictureRow row;
    for (std::size_t at = begin; at < end;) {
        if (text[at] == u'\n' && !request.hidden)
            break;
        const Shown shown = Measure(text, at, request);
        Add(row, at, shown);
        at = shown.end;
    }
    return row;
}

int FirstRow(const PictureRequest& request, int count, int cursorRow)
{
    const int highest = std::max(0, count - request.rows);
    const int first = std::clamp(request.firstRow, 0, highest);
    if (cursorRow < first)
        return cursorRow;
    return std::max(first, cursorRow - request.rows + 1);
}

} // namespace

LinePicture DrawLine(const PictureRequest& request)
{
    std::u16string together;
    std::u16string_view text = request.text;
    if (!request.suggestion.empty()) {
        together.append(request.text).append(request.suggestion);
        text = together;
    }
    const Rows rows(text, request);
    LinePicture picture;
    const int cursorRow = rows.RowOf(request.cursor);
    picture.firstRow = FirstRow(request, rows.Count(), cursorRow);
    picture.cursorRow = cursorRow - picture.firstRow;
    picture.cursorColumn = rows.ColumnOf(cursorRow, request.cursor);
    picture.endsInEmptyRow = rows.Count() > 1 && rows.Begin(rows.Count() - 1) == text.size() &&
                             (text.empty() || text.back() != u'\n');
    Drawing drawing(text, request);
    int behind = std::min(rows.Count(), picture.firstRow + request.rows);
    if (!request.suggestion.empty())
        behind = std::min(
            behind, std::max(rows.RowOf(request.text.size()) + 1, picture.firstRow + request.suggestionRows));
    for (int row = picture.firstRow; row < behind; ++row)
        picture.rows.push_back(drawing.Row(rows.Begin(row), rows.End(row)));
    return picture;
}
