// The window of the console that the process is attached to: where it stands and how opaque it is. Without a
// console or a window nothing happens. The system's window library is loaded by the first call.
#pragma once

enum class WindowShape { Standard, Maximized, Minimized, Placed, Hidden };

struct WindowPlace {
    WindowShape shape = WindowShape::Standard;
    // For WindowShape::Placed, in pixels of the screen; a width or height of 0 keeps the present size.
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};
void PlaceConsoleWindow(const WindowPlace& place);

// The window's size in characters, at least 20 x 2 and at most what fits the screen; 0 keeps one of them. The
// buffer grows with the window and becomes as narrow as it.
constexpr int largestWindow = 32767;
void ResizeConsoleWindow(int columns, int rows);
// By pixels, to the right and down.
void ShiftConsoleWindow(int right, int down);

constexpr unsigned opaqueWindow = 255;
void SetConsoleOpacity(unsigned opacity); // 0, which shows nothing, to opaqueWindow
