// Brings a picture of the edited line onto the screen: only cells that differ from what is there are written.
// Pure.
#pragma once

#include "console/editor_console.h"
#include "console/line_picture.h"

class LinePainter {
public:
    // The line begins where the cursor stands, behind the prompt.
    explicit LinePainter(EditorConsole& on) : console(on) {}
    void Begin();
    // In front of the prompt: what a program has left in the row would look typed.
    void ClearRow();

    // Fills in what depends on the console: `indent`, `columns`, `rows` and `firstRow`.
    void Complete(PictureRequest& request) const;
    void Show(const LinePicture& picture);

    // Blanks what is shown, with the prompt and the `promptRows` rows of it above the line, and puts the
    // cursor at the beginning of that. The prompt and Begin are next.
    void Erase(bool prompt, int promptRows);
    // The cursor goes behind the line that was shown last, to where a line end makes a fresh row.
    void MoveBehind(bool endsInEmptyRow);
    unsigned Plain() const { return plain; } // colours of the screen

    // Reads the size again; true when the width has changed, and with it every row.
    bool TakeNewSize();

private:
    void LeaveFullRow();
    void KeepPrompt();
    bool IsTextBrokenFrom(int row, int cursorColumn) const;
    void PaintRow(int row, const PictureRow& wanted);
    void WriteCells(int row, int column, const PictureRow& cells, std::size_t from, std::size_t to);

    EditorConsole& console;
    ScreenExtent extent;
    unsigned plain = 7;
    ScreenPlace origin; // of the first row that is shown; its column counts for the text's first row
    int firstRow = 0;   // of the text's rows
    std::vector<PictureRow> shown; // what stands from `origin.row` on, from column 0 on
    PictureRow prompt;             // the cells before the line, once they had to be covered
    int shownCursorRow = 0;
    int shownCursorColumn = 0;
    int brokenRows = 0; // what is shown takes since the console broke its rows anew
};
