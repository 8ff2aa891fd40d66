// An EditorConsole in memory: tests push keys, let the code under test run, and look at the cells.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <deque>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "console/editor_console.h"
#include "console/key_press_names.h"
#include "text/cell_width.h"
#include "text/code_points.h"

class FakeConsole : public EditorConsole {
public:
    FakeConsole(int columns, int rows) : width(columns), height(rows) { Resize(columns, rows); }

    // Keys to come. When none is left the console counts as gone.
    void Type(std::u16string_view text)
    {
        for (const char16_t unit : text)
            Push(KeyPressTyping(unit));
    }
    void Press(std::u16string_view name)
    {
        if (const auto key = KeyPressOf(name))
            Push(*key);
    }
    void Push(const KeyPress& key) { events.push_back({ConsoleEventKind::Key, key, {}, 0}); }
    void Push(const ConsoleEvent& event) { events.push_back(event); }
    // A size of the window from now on, told by an event. Rows keep their beginnings.
    void Resize(int columns, int rows)
    {
        std::vector<ScreenCell> kept(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows),
                                     {u' ', 7});
        for (int row = 0; row < std::min(rows, height) && !cells.empty(); ++row)
            for (int column = 0; column < std::min(columns, width); ++column)
                kept[static_cast<std::size_t>(row * columns + column)] = At(row, column);
        cells = std::move(kept);
        width = columns;
        height = rows;
        cursor.row = std::min(cursor.row, rows - 1);
        cursor.column = std::min(cursor.column, columns - 1);
    }
    // A narrower window that breaks its rows anew, and the row of the cursor with them.
    void BreakRows(int columns)
    {
        std::vector<ScreenCell> broken;
        ScreenPlace place;
        for (int row = 0; row < height; ++row) {
            const int used = TextWidth(Row(row));
            const int parts = std::max(1, (used + columns - 1) / columns);
            if (row == cursor.row)
                place = {static_cast<int>(broken.size()) / columns + cursor.column / columns,
                         cursor.column % columns};
            for (int column = 0; column < parts * columns; ++column)
                broken.push_back(column < width ? At(row, column) : ScreenCell{u' ', 7});
        }
        broken.resize(static_cast<std::size_t>(columns * height), {u' ', 7});
        cells = std::move(broken);
        width = columns;
        cursor = place;
    }

    // A row without the blanks at its end; wide characters appear once.
    CString Row(int row) const
    {
        CString text;
        for (int column = 0; column < width; ++column)
            if (const char16_t unit = At(row, column).unit; unit != 0)
                text.Append(unit);
        return text.TrimRight();
    }
    unsigned Color(int row, int column) const { return At(row, column).attributes; }

    std::size_t cellsWritten = 0;
    std::size_t writes = 0;
    std::size_t beeps = 0;
    int cursorHeight = -1;
    ScreenPlace cursor;
    CString clipboard;
    std::deque<ConsoleEvent> events;

    ConsoleEvent Wait(std::optional<std::uint64_t>) override
    {
        if (onWait)
            onWait();
        quietKeys -= quietKeys > 0 ? 1 : 0;
        if (events.empty())
            return {};
        const ConsoleEvent next = events.front();
        events.pop_front();
        return next;
    }
    struct Broken {};
    bool breaksOff = false;
    void Break() override
    {
        if (beforeBreak)
            beforeBreak();
        if (!breaksOff)
            throw Broken();
    }
    ConsoleEvent Peek() override
    {
        return events.empty() ? ConsoleEvent{ConsoleEventKind::TimedOut, {}, {}, 0} : events.front();
    }
    bool Await(std::uint64_t) override { return Waiting() > 0; }
    std::size_t Waiting() override { return drawsBetweenKeys || quietKeys > 0 ? 0 : events.size(); }
    void Lend(bool) override {}
    void WatchMouse(bool) override {}
    ScreenExtent Extent() override { return {width, height, 0, 0, height, width}; }
    ScreenPlace Cursor() override { return cursor; }
    void PlaceCursor(ScreenPlace place) override { cursor = place; }
    void ShapeCursor(int percent) override { cursorHeight = percent; }
    int CursorShape() override { return cursorHeight; }
    unsigned Attributes() override { return 7; }
    void WriteRun(ScreenPlace place, std::u16string_view text, unsigned attributes) override
    {
        ++writes;
        for (std::size_t at = 0; at < text.size(); ++at) {
            const std::size_t first = at;
            const int cellsOfIt = CellWidth(CodePointAt(text, at));
            for (int i = 0; i < cellsOfIt && place.column < width; ++i, ++place.column, ++cellsWritten)
                At(place.row, place.column) = {i == 0 ? text[first] : u'\0', attributes};
        }
        cursor = {place.row, std::min(place.column, width - 1)};
    }
    void WriteText(std::u16string_view text) override
    {
        for (const char16_t unit : text)
            Put(unit);
    }
    int MakeRoom(int row) override
    {
        const int missing = std::max(0, row - (height - 1));
        for (int i = 0; i < missing; ++i)
            Scroll();
        return missing;
    }
    std::vector<ScreenCell> ReadCells(const ScreenArea& area) override
    {
        std::vector<ScreenCell> read;
        for (int row = area.top; row < area.top + area.rows; ++row)
            for (int column = area.left; column < area.left + area.columns; ++column)
                read.push_back(At(row, column));
        return read;
    }
    void WriteCells(const ScreenArea& area, const std::vector<ScreenCell>& written) override
    {
        std::size_t i = 0;
        for (int row = area.top; row < area.top + area.rows; ++row)
            for (int column = area.left; column < area.left + area.columns; ++column)
                At(row, column) = written[i++];
    }
    std::optional<CString> ReadClipboard() override { return clipboard; }
    bool WriteClipboard(std::u16string_view text) override
    {
        clipboard = text;
        return true;
    }
    void Beep() override { ++beeps; }

    bool drawsBetweenKeys = true; // as if somebody typed slowly
    int quietKeys = 0;            // the same for so many keys
    std::function<void()> onWait; // looks at what is drawn before a key is read

private:
    std::size_t Index(int row, int column) const
    {
        if (row < 0 || row >= height || column < 0 || column >= width)
            std::abort(); // outside the screen
        return static_cast<std::size_t>(row * width + column);
    }
    ScreenCell& At(int row, int column) { return cells[Index(row, column)]; }
    const ScreenCell& At(int row, int column) const { return cells[Index(row, column)]; }
    void Scroll()
    {
        std::copy(cells.begin() + width, cells.end(), cells.begin());
        std::fill(cells.end() - width, cells.end(), ScreenCell{u' ', 7});
    }
    void Put(char16_t unit)
    {
        if (unit == u'\r')
            cursor.column = 0;
        else if (unit == u'\n') {
            if (++cursor.row == height) {
                Scroll();
                --cursor.row;
            }
        } else if (unit >= u' ') {
            At(cursor.row, cursor.column) = {unit, 7};
            if (++cursor.column == width) {
                Put(u'\r');
                Put(u'\n');
            }
        }
    }

    int width;
    int height;
    std::vector<ScreenCell> cells;
};
