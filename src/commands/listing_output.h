// Where commands write many lines to: gathered into blocks, or a screen at a time when that is asked for.
#pragma once

#include <string_view>

#include "commands/pager.h"
#include "engine/painted_text.h"

class ListingOutput {
public:
    explicit ListingOutput(bool waitsAtScreens) : pauses(waitsAtScreens), pager(waitsAtScreens) {}

    void Line(std::u16string_view text);
    void Line(const PaintedText& text);
    // Writes what is gathered: at the end, before questions and errors, and after what took long. False once
    // the output has refused; the reason stands in the last error.
    bool Flush();
    bool Refused() const { return refused; }

private:
    void FlushWhenFull();
    void Note(bool written);

    bool pauses;
    Pager pager;
    PaintedText waiting;
    bool refused = false;
    unsigned reason = 0; // a Windows error number
};
