#include "platform/desktop.h"

#include <iterator>

#include "platform/lazy_library.h"
#include "platform/shared_input.h"

namespace {

constinit LazyFunction<decltype(EnumWindows)> enumWindows(libraries::user32, "EnumWindows");
constinit LazyFunction<decltype(GetWindowTextW)> getWindowText(libraries::user32, "GetWindowTextW");
constinit LazyFunction<decltype(IsWindow)> isWindow(libraries::user32, "IsWindow");
constinit LazyFunction<decltype(IsWindowVisible)> isWindowVisible(libraries::user32, "IsWindowVisible");
constinit LazyFunction<decltype(IsHungAppWindow)> isHungAppWindow(libraries::user32, "IsHungAppWindow");
constinit LazyFunction<decltype(GetClassNameW)> getClassName(libraries::user32, "GetClassNameW");
constinit LazyFunction<decltype(GetWindowThreadProcessId)> getProcess(libraries::user32,
                                                                      "GetWindowThreadProcessId");
constinit LazyFunction<decltype(GetWindowRect)> getWindowRect(libraries::user32, "GetWindowRect");
constinit LazyFunction<decltype(GetClientRect)> getClientRect(libraries::user32, "GetClientRect");
constinit LazyFunction<decltype(GetWindowPlacement)> getPlacement(libraries::user32, "GetWindowPlacement");
constinit LazyFunction<decltype(GetWindowLongW)> getWindowLong(libraries::user32, "GetWindowLongW");
constinit LazyFunction<decltype(GetForegroundWindow)> getForeground(libraries::user32, "GetForegroundWindow");
constinit LazyFunction<decltype(GetSystemMetrics)> getSystemMetrics(libraries::user32, "GetSystemMetrics");
constinit LazyFunction<decltype(SystemParametersInfoW)> systemParameters(libraries::user32,
                                                                         "SystemParametersInfoW");
constinit LazyFunction<decltype(GetCursorPos)> getCursorPos(libraries::user32, "GetCursorPos");
constinit LazyFunction<decltype(GetLastInputInfo)> getLastInput(libraries::user32, "GetLastInputInfo");
constinit LazyFunction<decltype(GetAsyncKeyState)> getAsyncKeyState(libraries::user32, "GetAsyncKeyState");
constinit LazyFunction<decltype(GetKeyState)> getKeyState(libraries::user32, "GetKeyState");

CString TitleOf(HWND window)
{
    wchar_t title[1024];
    const int length = getWindowText(window, title, static_cast<int>(std::size(title)));
    return std::u16string_view(reinterpret_cast<const char16_t*>(title), static_cast<std::size_t>(length));
}

BOOL CALLBACK KeepWindow(HWND window, LPARAM parameter)
{
    CString title = TitleOf(window);
    if (!title.empty())
        reinterpret_cast<std::vector<TopWindow>*>(parameter)->push_back({window, std::move(title)});
    return TRUE;
}

// Parameters that are one number: every other kind would be written over more memory than a number has.
constexpr unsigned numberParameters[] = {
    SPI_GETBEEP,
    SPI_GETBORDER,
    SPI_GETKEYBOARDSPEED,
    SPI_GETSCREENSAVETIMEOUT,
    SPI_GETSCREENSAVEACTIVE,
    SPI_GETKEYBOARDDELAY,
    SPI_GETICONTITLEWRAP,
    SPI_GETMENUDROPALIGNMENT,
    SPI_GETDRAGFULLWINDOWS,
    SPI_GETKEYBOARDPREF,
    SPI_GETSCREENREADER,
    SPI_GETFONTSMOOTHING,
    SPI_GETMOUSETRAILS,
    SPI_GETSNAPTODEFBUTTON,
    SPI_GETMOUSEHOVERWIDTH,
    SPI_GETMOUSEHOVERHEIGHT,
    SPI_GETMOUSEHOVERTIME,
    SPI_GETWHEELSCROLLLINES,
    SPI_GETMENUSHOWDELAY,
    SPI_GETWHEELSCROLLCHARS,
    SPI_GETMOUSESPEED,
    SPI_GETSCREENSAVERRUNNING,
    SPI_GETACTIVEWINDOWTRACKING,
    SPI_GETMENUANIMATION,
    SPI_GETCOMBOBOXANIMATION,
    SPI_GETLISTBOXSMOOTHSCROLLING,
    SPI_GETGRADIENTCAPTIONS,
    SPI_GETKEYBOARDCUES,
    SPI_GETACTIVEWNDTRKZORDER,
    SPI_GETHOTTRACKING,
    SPI_GETMENUFADE,
    SPI_GETSELECTIONFADE,
    SPI_GETTOOLTIPANIMATION,
    SPI_GETTOOLTIPFADE,
    SPI_GETCURSORSHADOW,
    SPI_GETMOUSESONAR,
    SPI_GETMOUSECLICKLOCK,
    SPI_GETMOUSEVANISH,
    SPI_GETFLATMENU,
    SPI_GETDROPSHADOW,
    SPI_GETUIEFFECTS,
    SPI_GETCLIENTAREAANIMATION,
    SPI_GETFOREGROUNDLOCKTIMEOUT,
    SPI_GETACTIVEWNDTRKTIMEOUT,
    SPI_GETFOREGROUNDFLASHCOUNT,
    SPI_GETCARETWIDTH,
    SPI_GETMOUSECLICKLOCKTIME,
    SPI_GETFONTSMOOTHINGTYPE,
    SPI_GETFONTSMOOTHINGCONTRAST,
    SPI_GETFOCUSBORDERWIDTH,
    SPI_GETFOCUSBORDERHEIGHT,
};

} // namespace

std::vector<TopWindow> TopWindows()
{
    std::vector<TopWindow> windows;
    enumWindows(KeepWindow, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

bool IsVisible(HWND window) { return isWindowVisible(window) != 0; }
bool IsHung(HWND window) { return isHungAppWindow(window) != 0; }

std::optional<WindowFacts> ReadWindowFacts(HWND window)
{
    if (!isWindow(window))
        return std::nullopt;
    WindowFacts facts;
    facts.title = TitleOf(window);
    wchar_t name[257];
    const int length = getClassName(window, name, static_cast<int>(std::size(name)));
    facts.className =
        std::u16string_view(reinterpret_cast<const char16_t*>(name), static_cast<std::size_t>(length));
    DWORD process = 0;
    facts.thread = getProcess(window, &process);
    facts.process = process;
    facts.visible = IsVisible(window);
    facts.style = static_cast<std::uint32_t>(getWindowLong(window, GWL_STYLE));
    facts.extendedStyle = static_cast<std::uint32_t>(getWindowLong(window, GWL_EXSTYLE));
    facts.minimized = (facts.style & WS_MINIMIZE) != 0;
    facts.maximized = (facts.style & WS_MAXIMIZE) != 0;
    facts.topmost = (facts.extendedStyle & WS_EX_TOPMOST) != 0;
    getWindowRect(window, &facts.place);
    WINDOWPLACEMENT placement = {};
    placement.length = sizeof placement;
    if (facts.minimized && getPlacement(window, &placement))
        facts.place = placement.rcNormalPosition;
    RECT client = {};
    getClientRect(window, &client);
    facts.client = {client.right, client.bottom};
    return facts;
}

HWND ForegroundWindow() { return getForeground(); }
HWND ConsoleWindow() { return GetConsoleWindow(); }

int ReadSystemMetric(int metric) { return getSystemMetrics(metric); }

std::optional<unsigned> ReadDesktopParameter(unsigned parameter)
{
    UINT value = 0;
    for (const unsigned known : numberParameters)
        if (known == parameter && systemParameters(parameter, 0, &value, 0))
            return value;
    return std::nullopt;
}

std::optional<POINT> MousePlace()
{
    POINT place = {};
    if (!getCursorPos(&place))
        return std::nullopt;
    return place;
}

bool IsHighContrast()
{
    HIGHCONTRASTW contrast = {};
    contrast.cbSize = sizeof contrast;
    return systemParameters(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

unsigned IdleTime()
{
    LASTINPUTINFO last = {sizeof last, 0};
    return getLastInput(&last) ? static_cast<unsigned>(GetTickCount() - last.dwTime) : 0;
}

bool IsKeyDown(int virtualKey) { return (getAsyncKeyState(virtualKey) & 0x8000) != 0; }
bool IsKeyOn(int virtualKey)
{
    // The state that a thread sees is as old as the last key that one of its own windows got.
    const SharedInput shared;
    return (getKeyState(virtualKey) & 1) != 0;
}
