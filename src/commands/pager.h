// Showing many lines, a screen at a time when that is asked for. Esc or Q at the end of a screen throws
// ListingLeft, Enter shows one line more.
#pragma once

#include <string_view>

#include "engine/painted_text.h"
#include "platform/console_size.h"

class Pager {
public:
    // Pauses only when standard input and output are consoles.
    explicit Pager(bool pauses);
    // Writes a line and its end. False when the output refused it: there is no use in going on.
    bool Line(std::u16string_view text);
    bool Line(PaintedText line);
    // Writes a line that brings its end along, or a part of a long one, as it stands.
    bool Piece(std::u16string_view text);

private:
    void Prepare(std::u16string_view text);
    void MakeRoom(int needed); // rows

    ConsoleSize screen; // without rows there are no pauses
    int rows = 0;       // used since the last pause
};
