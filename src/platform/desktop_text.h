// A text on the desktop, in front of everything, without a frame and not in the way of the mouse.
#pragma once

#include <cstdint>
#include <optional>

#include <windows.h>

#include "text/cstring.h"

struct DesktopText {
    CString text;
    CString font; // "" for the usual one
    int points = 24;
    bool bold = false;
    bool italic = false;
    COLORREF color = 0;
    // In ninths of the screen, from the upper left one: column and row, 0 to 2; unless there is a place.
    int column = 1;
    int row = 1;
    std::optional<POINT> place;
    std::uint64_t milliseconds = 5000;
};

// Shows it and waits until its time is over; `stop` is asked now and then and ends it early. False when there
// is no desktop.
bool ShowDesktopText(const DesktopText& shown, bool (*stop)());
// Does not wait. It goes when this process ends, at the latest.
bool ShowDesktopTextAside(const DesktopText& shown);
