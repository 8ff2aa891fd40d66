#include "platform/console_window.h"

#include <windows.h>

#include "platform/window_changes.h"

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
