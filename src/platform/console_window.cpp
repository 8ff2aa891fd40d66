#include "platform/console_window.h"

#include <windows.h>

#include "platform/lazy_library.h"

namespace {

LazyFunction<decltype(ShowWindow)> showWindow(libraries::user32, "ShowWindow");
LazyFunction<decltype(SetWindowPos)> setWindowPos(libraries::user32, "SetWindowPos");
LazyFunction<decltype(GetWindowLongPtrW)> getWindowLong(libraries::user32, "GetWindowLongPtrW");
LazyFunction<decltype(SetWindowLongPtrW)> setWindowLong(libraries::user32, "SetWindowLongPtrW");
LazyFunction<decltype(SetLayeredWindowAttributes)> setLayered(libraries::user32,
                                                              "SetLayeredWindowAttributes");

} // namespace

void PlaceConsoleWindow(const WindowPlace& place)
{
    const HWND window = GetConsoleWindow();
    if (!window)
        return;
    switch (place.shape) {
    case WindowShape::Standard: break;
    case WindowShape::Maximized: showWindow(window, SW_SHOWMAXIMIZED); break;
    case WindowShape::Minimized: showWindow(window, SW_SHOWMINIMIZED); break;
    case WindowShape::Hidden: showWindow(window, SW_HIDE); break;
    case WindowShape::Placed: {
        const UINT keepSize = place.width > 0 && place.height > 0 ? 0 : SWP_NOSIZE;
        setWindowPos(window, nullptr, place.left, place.top, place.width, place.height,
                     keepSize | SWP_NOZORDER | SWP_NOACTIVATE);
    }
    }
}

void SetConsoleOpacity(unsigned opacity)
{
    const HWND window = GetConsoleWindow();
    if (!window)
        return;
    setWindowLong(window, GWL_EXSTYLE, getWindowLong(window, GWL_EXSTYLE) | WS_EX_LAYERED);
    setLayered(window, 0, static_cast<BYTE>(opacity), LWA_ALPHA);
}
