// Drawing on the console's screen: characters and colours of a rectangle are read and written at once, and
// the cursor stays where it is.
//
// Places are those of the screen buffer, from 0, and must lie in it. Colours are background x 16 +
// foreground. Without a console all of this answers false, the reason in the last error.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "text/cstring.h"

struct DrawnArea {
    int row = 0;
    int column = 0;
    int rows = 0;
    int columns = 0;
};

struct DrawnCell {
    char16_t unit = u' ';
    unsigned short attributes = 0; // with the marks of characters that take two cells
};

// The cells of an area of the screen, row after row.
class ScreenCells {
public:
    // Reads what stands there.
    bool Read(const DrawnArea& from);
    bool Write() const;

    const DrawnArea& Area() const { return area; }
    // Places within the area.
    DrawnCell& At(int row, int column)
    {
        return cells[static_cast<std::size_t>(row) * static_cast<std::size_t>(area.columns) +
                     static_cast<std::size_t>(column)];
    }
    void Paint(int row, int column, unsigned attributes);

private:
    DrawnArea area;
    std::vector<DrawnCell> cells;
};

// Writes over what stands there, row after row down to the end of the buffer.
bool WriteScreenText(int row, int column, std::u16string_view text, unsigned attributes);
