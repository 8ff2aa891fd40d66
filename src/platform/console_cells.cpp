#include "platform/console_cells.h"

#include <algorithm>

#include <windows.h>

#include "platform/console_handles.h"

namespace {

constexpr int cellsPerCall = 8192; // older consoles move no more than 64 KB at once
constexpr unsigned short colorBits = 0xFF;

COORD Place(int row, int column) { return {static_cast<SHORT>(column), static_cast<SHORT>(row)}; }

// Calls `move(cells, size, region)` for bands of the area that are small enough.
template <typename Move> bool InBands(const DrawnArea& area, std::vector<CHAR_INFO>& cells, Move move)
{
    const int bandRows = std::max(1, cellsPerCall / std::max(1, area.columns));
    for (int row = 0; row < area.rows; row += bandRows) {
        const int rows = std::min(bandRows, area.rows - row);
        SMALL_RECT region = {static_cast<SHORT>(area.column), static_cast<SHORT>(area.row + row),
                             static_cast<SHORT>(area.column + area.columns - 1),
                             static_cast<SHORT>(area.row + row + rows - 1)};
        CHAR_INFO* band =
            cells.data() + static_cast<std::size_t>(row) * static_cast<std::size_t>(area.columns);
        if (!move(band, Place(rows, area.columns), &region))
            return false;
    }
    return true;
}

} // namespace

bool ScreenCells::Read(const DrawnArea& from)
{
    area = from;
    std::vector<CHAR_INFO> read(static_cast<std::size_t>(area.rows) * static_cast<std::size_t>(area.columns));
    const bool done =
        ConsoleScreen() && InBands(area, read, [](CHAR_INFO* band, COORD size, SMALL_RECT* region) {
            return ReadConsoleOutputW(ConsoleScreen(), band, size, {0, 0}, region);
        });
    cells.clear();
    for (const CHAR_INFO& cell : read)
        cells.push_back({static_cast<char16_t>(cell.Char.UnicodeChar), cell.Attributes});
    return done;
}

bool ScreenCells::Write() const
{
    std::vector<CHAR_INFO> written;
    written.reserve(cells.size());
    for (const DrawnCell& cell : cells) {
        CHAR_INFO info = {};
        info.Char.UnicodeChar = static_cast<wchar_t>(cell.unit);
        info.Attributes = cell.attributes;
        written.push_back(info);
    }
    return ConsoleScreen() && InBands(area, written, [](CHAR_INFO* band, COORD size, SMALL_RECT* region) {
               return WriteConsoleOutputW(ConsoleScreen(), band, size, {0, 0}, region);
           });
}

void ScreenCells::Paint(int row, int column, unsigned attributes)
{
    DrawnCell& cell = At(row, column);
    cell.attributes = static_cast<unsigned short>((cell.attributes & ~colorBits) | (attributes & colorBits));
}

bool WriteScreenText(int row, int column, std::u16string_view text, unsigned attributes)
{
    DWORD done = 0;
    const COORD from = Place(row, column);
    const auto count = static_cast<DWORD>(text.size());
    return ConsoleScreen() &&
           WriteConsoleOutputCharacterW(ConsoleScreen(), reinterpret_cast<const wchar_t*>(text.data()), count,
                                        from, &done) &&
           FillConsoleOutputAttribute(ConsoleScreen(), static_cast<WORD>(attributes), done, from, &done);
}
