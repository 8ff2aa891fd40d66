// The screen, the windows on it, the mouse and the keyboard, whether or not this process has a window there.
//
// Places and sizes are in pixels of the virtual screen, which spans all monitors. Without a desktop (a
// service) questions are answered with nothing, zeros or an empty text.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include <windows.h>

#include "text/cstring.h"

struct TopWindow {
    HWND handle = nullptr;
    CString title;
};

// The windows that stand on the desktop and have a title, from the front to the back.
std::vector<TopWindow> TopWindows();
bool IsVisible(HWND window);
bool IsHung(HWND window);

struct WindowFacts {
    CString title;
    CString className;
    unsigned process = 0;
    unsigned thread = 0;
    RECT place = {}; // borders included; of a minimized window where it stands when it is shown again
    SIZE client = {};
    bool visible = false;
    bool minimized = false;
    bool maximized = false;
    bool topmost = false;
    std::uint32_t style = 0;
    std::uint32_t extendedStyle = 0;
};
// Nothing when there is no such window.
std::optional<WindowFacts> ReadWindowFacts(HWND window);

HWND ForegroundWindow();
// The window in which the console is shown; null when nobody shows it.
HWND ConsoleWindow();

// A metric (SM_...) of the system.
int ReadSystemMetric(int metric);
// A number that the system keeps as a parameter of the desktop (SPI_GET...); nothing for others.
std::optional<unsigned> ReadDesktopParameter(unsigned parameter);
std::optional<POINT> MousePlace();
bool IsHighContrast();
// Milliseconds since the last key or movement of the mouse.
unsigned IdleTime();

bool IsKeyDown(int virtualKey);
// Of Caps Lock and its like.
bool IsKeyOn(int virtualKey);
