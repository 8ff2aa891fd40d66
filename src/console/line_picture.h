// How an edited text looks on the screen: rows of cells, and the place of its cursor. Pure.
//
// The first row begins behind the prompt. A text is cut into rows as a console would; control characters show
// as "^X". Only the rows that fit the window are pictured, so that long texts cost no more than short ones,
// but for one quick pass that finds where rows begin.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

struct PictureCell {
    std::array<char16_t, 4> units{u' '}; // a character and its marks, as many as there is room for
    std::uint8_t count = 1;              // 0: the second half of a wide character
    std::uint8_t colors = 0;
    friend bool operator==(const PictureCell&, const PictureCell&) = default;
};
using PictureRow = std::vector<PictureCell>;

// The colours of a run of units, up to `end`.
struct ColorRun {
    std::size_t end = 0;
    std::uint8_t colors = 0;
};

struct PictureRequest {
    std::u16string_view text;
    std::size_t cursor = 0;
    const std::vector<ColorRun>* colors = nullptr; // the rest of the text has `plain`
    std::uint8_t plain = 7;
    std::u16string_view suggestion; // shown behind the text, not part of it
    std::uint8_t suggestionColors = 8;
    int suggestionRows = 25; // it is cut where it would need more rows than these and those of the text
    std::size_t selectionBegin = 0;
    std::size_t selectionEnd = 0;
    std::uint8_t selectionColors = 0x70;
    bool hidden = false; // a star for each character
    int indent = 0;      // the column of the first character
    int columns = 80;
    int rows = 25;    // that fit
    int firstRow = 0; // of those that were shown before; changed only when the cursor would be outside
};

struct LinePicture {
    std::vector<PictureRow> rows; // the first one begins at `indent` when firstRow is 0
    int firstRow = 0;             // of the text's rows
    int cursorRow = 0;            // among `rows`
    int cursorColumn = 0;
    bool endsInEmptyRow = false; // the last row holds nothing, for the one before it is full
};
LinePicture DrawLine(const PictureRequest& request);
