#include "platform/console_window.h"

#include <algorithm>

#include <windows.h>

#include "platform/console_handles.h"
#include "platform/lazy_library.h"
#include "platform/window_changes.h"

namespace {

LazyFunction<decltype(GetWindowRect)> getWindowRect(libraries::user32, "GetWindowRect");

} // namespace

void PlaceConsoleWindow(const WindowPlace& place)
{
    const HWND window = GetConsoleWindow();
    if (!window)
        return;
    switch (place.shape) {
    case WindowShape::Standard: break;
    case WindowShape::Maximized: ShowWindowAs(window, WindowShow::Maximized); break;
    case WindowShape::Minimized: ShowWindowAs(window, WindowShow::Minimized); break;
    case WindowShape::Hidden: ShowWindowAs(window, WindowShow::Hidden); break;
    case WindowShape::Placed: {
        std::optional<SIZE> size;
        if (place.width > 0 && place.height > 0)
            size = SIZE{place.width, place.height};
        MoveWindowTo(window, POINT{place.left, place.top}, size);
    }
    }
}

void SetConsoleOpacity(unsigned opacity)
{
    if (const HWND window = GetConsoleWindow())
        SetWindowOpacity(window, opacity);
}

void ResizeConsoleWindow(int columns, int rows)
{
    constexpr int fewestColumns = 20;
    constexpr int fewestRows = 2;
    CONSOLE_SCREEN_BUFFER_INFO info;
    if (!GetConsoleScreenBufferInfo(ConsoleScreen(), &info))
        return;
    const COORD largest = GetLargestConsoleWindowSize(ConsoleScreen());
    const int wide = columns == 0
                         ? info.srWindow.Right - info.srWindow.Left + 1
                         : std::clamp(columns, fewestColumns, std::max<int>(largest.X, fewestColumns));
    const int high = rows == 0 ? info.srWindow.Bottom - info.srWindow.Top + 1
                               : std::clamp(rows, fewestRows, std::max<int>(largest.Y, fewestRows));
    const COORD roomy = {static_cast<SHORT>(std::max<int>(wide, info.dwSize.X)),
                         static_cast<SHORT>(std::max<int>(high, info.dwSize.Y))};
    SetConsoleScreenBufferSize(ConsoleScreen(), roomy);
    // The cursor stays in view.
    const int cursor = info.dwCursorPosition.Y;
    const int top =
        std::clamp(std::clamp<int>(info.srWindow.Top, cursor - high + 1, cursor), 0, roomy.Y - high);
    const SMALL_RECT window = {0, static_cast<SHORT>(top), static_cast<SHORT>(wide - 1),
                               static_cast<SHORT>(top + high - 1)};
    SetConsoleWindowInfo(ConsoleScreen(), TRUE, &window);
    if (columns != 0)
        SetConsoleScreenBufferSize(ConsoleScreen(), {static_cast<SHORT>(wide), roomy.Y});
}

void ShiftConsoleWindow(int right, int down)
{
    const HWND window = GetConsoleWindow();
    RECT place;
    if (window && getWindowRect(window, &place))
        MoveWindowTo(window, POINT{place.left + right, place.top + down}, std::nullopt);
}
