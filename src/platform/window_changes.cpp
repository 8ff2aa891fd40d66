#include "platform/window_changes.h"

#include "platform/lazy_library.h"
#include "platform/shared_input.h"
#include "text/cstring.h"

namespace {

constinit LazyFunction<decltype(ShowWindow)> showWindow(libraries::user32, "ShowWindow");
constinit LazyFunction<decltype(IsWindow)> isWindow(libraries::user32, "IsWindow");
constinit LazyFunction<decltype(IsIconic)> isIconic(libraries::user32, "IsIconic");
constinit LazyFunction<decltype(SetForegroundWindow)> setForeground(libraries::user32, "SetForegroundWindow");
constinit LazyFunction<decltype(BringWindowToTop)> bringToTop(libraries::user32, "BringWindowToTop");
constinit LazyFunction<decltype(SetWindowPos)> setWindowPos(libraries::user32, "SetWindowPos");
constinit LazyFunction<decltype(GetWindowLongPtrW)> getWindowLong(libraries::user32, "GetWindowLongPtrW");
constinit LazyFunction<decltype(SetWindowLongPtrW)> setWindowLong(libraries::user32, "SetWindowLongPtrW");
constinit LazyFunction<decltype(SetLayeredWindowAttributes)> setLayered(libraries::user32,
                                                                        "SetLayeredWindowAttributes");
constinit LazyFunction<decltype(FlashWindowEx)> flashWindow(libraries::user32, "FlashWindowEx");
constinit LazyFunction<decltype(PostMessageW)> postMessage(libraries::user32, "PostMessageW");
constinit LazyFunction<decltype(SetWindowTextW)> setWindowText(libraries::user32, "SetWindowTextW");

} // namespace

bool BringToFront(HWND window)
{
    if (!isWindow(window))
        return false;
    showWindow(window, isIconic(window) ? SW_RESTORE : SW_SHOW);
    const SharedInput shared; // only the program in front may put another window there
    bringToTop(window);
    return setForeground(window) != FALSE;
}

bool ShowWindowAs(HWND window, WindowShow how)
{
    constexpr int commands[] = {SW_HIDE, SW_SHOW, SW_MINIMIZE, SW_MAXIMIZE, SW_RESTORE};
    if (!isWindow(window))
        return false;
    showWindow(window, commands[static_cast<int>(how)]);
    return true;
}

bool OrderWindow(HWND window, WindowOrder order)
{
    const HWND places[] = {HWND_TOP, HWND_BOTTOM, HWND_TOPMOST, HWND_NOTOPMOST};
    return setWindowPos(window, places[static_cast<int>(order)], 0, 0, 0, 0,
                        SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE) != FALSE;
}

bool MoveWindowTo(HWND window, std::optional<POINT> place, std::optional<SIZE> size)
{
    const POINT at = place.value_or(POINT{});
    const SIZE extent = size.value_or(SIZE{});
    const UINT kept = (place ? 0U : UINT{SWP_NOMOVE}) | (size ? 0U : UINT{SWP_NOSIZE});
    return setWindowPos(window, nullptr, at.x, at.y, extent.cx, extent.cy,
                        kept | SWP_NOZORDER | SWP_NOACTIVATE) != FALSE;
}

bool SetWindowOpacity(HWND window, unsigned opacity)
{
    setWindowLong(window, GWL_EXSTYLE, getWindowLong(window, GWL_EXSTYLE) | WS_EX_LAYERED);
    return setLayered(window, 0, static_cast<BYTE>(opacity), LWA_ALPHA) != FALSE;
}

bool FlashWindow(HWND window, std::optional<unsigned> count)
{
    if (!isWindow(window))
        return false;
    FLASHWINFO flash = {};
    flash.cbSize = sizeof flash;
    flash.hwnd = window;
    flash.dwFlags = FLASHW_ALL | (count ? DWORD{0} : DWORD{FLASHW_TIMERNOFG});
    flash.uCount = count.value_or(0);
    flashWindow(&flash);
    return true;
}

bool AskToClose(HWND window) { return postMessage(window, WM_CLOSE, 0, 0) != FALSE; }

bool SetWindowTitle(HWND window, std::u16string_view title)
{
    return setWindowText(window, CString(title).w()) != FALSE;
}
