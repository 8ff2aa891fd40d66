#include "platform/desktop_text.h"

#include <algorithm>
#include <memory>

#include "platform/clock.h"
#include "platform/handle.h"
#include "platform/lazy_library.h"

namespace {

constinit LazyLibrary gdi32(L"gdi32.dll");
constinit LazyFunction<decltype(CreateFontW)> createFont(gdi32, "CreateFontW");
constinit LazyFunction<decltype(CreateSolidBrush)> createBrush(gdi32, "CreateSolidBrush");
constinit LazyFunction<decltype(SelectObject)> selectObject(gdi32, "SelectObject");
constinit LazyFunction<decltype(DeleteObject)> deleteObject(gdi32, "DeleteObject");
constinit LazyFunction<decltype(SetTextColor)> setTextColor(gdi32, "SetTextColor");
constinit LazyFunction<decltype(SetBkMode)> setBackgroundMode(gdi32, "SetBkMode");
constinit LazyFunction<decltype(GetDeviceCaps)> deviceCaps(gdi32, "GetDeviceCaps");
constinit LazyFunction<decltype(GetDC)> getDC(libraries::user32, "GetDC");
constinit LazyFunction<decltype(ReleaseDC)> releaseDC(libraries::user32, "ReleaseDC");
constinit LazyFunction<decltype(FillRect)> fillRect(libraries::user32, "FillRect");
constinit LazyFunction<decltype(DrawTextW)> drawText(libraries::user32, "DrawTextW");
constinit LazyFunction<decltype(BeginPaint)> beginPaint(libraries::user32, "BeginPaint");
constinit LazyFunction<decltype(EndPaint)> endPaint(libraries::user32, "EndPaint");
constinit LazyFunction<decltype(RegisterClassW)> registerClass(libraries::user32, "RegisterClassW");
constinit LazyFunction<decltype(CreateWindowExW)> createWindow(libraries::user32, "CreateWindowExW");
constinit LazyFunction<decltype(DestroyWindow)> destroyWindow(libraries::user32, "DestroyWindow");
constinit LazyFunction<decltype(ShowWindow)> showWindow(libraries::user32, "ShowWindow");
constinit LazyFunction<decltype(DefWindowProcW)> defaultProcedure(libraries::user32, "DefWindowProcW");
constinit LazyFunction<decltype(SetWindowLongPtrW)> setWindowLong(libraries::user32, "SetWindowLongPtrW");
constinit LazyFunction<decltype(GetWindowLongPtrW)> getWindowLong(libraries::user32, "GetWindowLongPtrW");
constinit LazyFunction<decltype(SetLayeredWindowAttributes)> setLayered(libraries::user32,
                                                                        "SetLayeredWindowAttributes");
constinit LazyFunction<decltype(SystemParametersInfoW)> systemParameters(libraries::user32,
                                                                         "SystemParametersInfoW");
constinit LazyFunction<decltype(PeekMessageW)> peekMessage(libraries::user32, "PeekMessageW");
constinit LazyFunction<decltype(DispatchMessageW)> dispatchMessage(libraries::user32, "DispatchMessageW");
constinit LazyFunction<decltype(MsgWaitForMultipleObjectsEx)> waitForMessage(libraries::user32,
                                                                             "MsgWaitForMultipleObjectsEx");

constexpr wchar_t className[] = L"MovacoreText";
constexpr UINT textFormat = DT_NOPREFIX | DT_EXPANDTABS;

class TextWindow {
public:
    explicit TextWindow(const DesktopText& of) : shown(of), transparent(of.color == 0 ? 0x010101 : 0) {}
    TextWindow(const TextWindow&) = delete;
    TextWindow& operator=(const TextWindow&) = delete;
    ~TextWindow()
    {
        if (window)
            destroyWindow(window);
        deleteObject(font);
        deleteObject(brush);
    }

    bool Open()
    {
        if (!MakeTools())
            return false;
        WNDCLASSW description = {};
        description.lpfnWndProc = HandleMessage;
        description.hInstance = GetModuleHandleW(nullptr);
        description.lpszClassName = className;
        registerClass(&description); // fails when it is registered already
        const RECT at = Place();
        window = createWindow(WS_EX_LAYERED | WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_TRANSPARENT |
                                  WS_EX_NOACTIVATE,
                              className, L"", WS_POPUP, at.left, at.top, at.right - at.left,
                              at.bottom - at.top, nullptr, nullptr, description.hInstance, nullptr);
        if (!window)
            return false;
        setWindowLong(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        setLayered(window, transparent, 0, LWA_COLORKEY);
        showWindow(window, SW_SHOWNOACTIVATE);
        return true;
    }

    void Stay(bool (*stop)())
    {
        constexpr std::uint64_t step = 50;
        const std::uint64_t end = Ticks() + shown.milliseconds;
        for (std::uint64_t now = Ticks(); now < end && !(stop && stop()); now = Ticks()) {
            waitForMessage(0, nullptr, static_cast<DWORD>(std::min(step, end - now)), QS_ALLINPUT,
                           MWMO_ALERTABLE | MWMO_INPUTAVAILABLE);
            MSG message;
            while (peekMessage(&message, nullptr, 0, 0, PM_REMOVE))
                dispatchMessage(&message);
        }
    }

private:
    // Letters without soft edges: those would be seen as a rim.
    bool MakeTools()
    {
        constexpr int pointsPerInch = 72;
        const HDC screen = getDC(nullptr);
        if (!screen)
            return false;
        const int height = -MulDiv(shown.points, deviceCaps(screen, LOGPIXELSY), pointsPerInch);
        font = createFont(height, 0, 0, 0, shown.bold ? FW_BOLD : FW_NORMAL, shown.italic, FALSE, FALSE,
                          DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, NONANTIALIASED_QUALITY,
                          DEFAULT_PITCH, shown.font.empty() ? L"Segoe UI" : shown.font.w());
        brush = createBrush(transparent);
        const HGDIOBJ before = selectObject(screen, font);
        drawText(screen, shown.text.w(), static_cast<int>(shown.text.size()), &extent,
                 textFormat | DT_CALCRECT);
        selectObject(screen, before);
        releaseDC(nullptr, screen);
        return true;
    }

    RECT Place() const
    {
        RECT area = {};
        systemParameters(SPI_GETWORKAREA, 0, &area, 0);
        POINT at = {area.left + (area.right - area.left - extent.right) * shown.column / 2,
                    area.top + (area.bottom - area.top - extent.bottom) * shown.row / 2};
        at = shown.place.value_or(at);
        return {at.x, at.y, at.x + extent.right, at.y + extent.bottom};
    }

    void Paint()
    {
        PAINTSTRUCT paint;
        const HDC screen = beginPaint(window, &paint);
        RECT area = extent;
        fillRect(screen, &area, brush);
        const HGDIOBJ before = selectObject(screen, font);
        setTextColor(screen, shown.color);
        setBackgroundMode(screen, TRANSPARENT);
        const UINT alignment = shown.column == 1 ? DT_CENTER : shown.column == 2 ? DT_RIGHT : DT_LEFT;
        drawText(screen, shown.text.w(), static_cast<int>(shown.text.size()), &area, textFormat | alignment);
        selectObject(screen, before);
        endPaint(window, &paint);
    }

    static LRESULT CALLBACK HandleMessage(HWND window, UINT message, WPARAM w, LPARAM l)
    {
        auto* text = reinterpret_cast<TextWindow*>(getWindowLong(window, GWLP_USERDATA));
        if (message != WM_PAINT || !text)
            return defaultProcedure(window, message, w, l);
        text->Paint();
        return 0;
    }

    const DesktopText& shown;
    COLORREF transparent;
    HWND window = nullptr;
    HFONT font = nullptr;
    HBRUSH brush = nullptr;
    RECT extent = {};
};

DWORD WINAPI ShowAside(void* parameter)
{
    const std::unique_ptr<DesktopText> shown(static_cast<DesktopText*>(parameter));
    return ShowDesktopText(*shown, nullptr) ? 0 : 1;
}

} // namespace

bool ShowDesktopText(const DesktopText& shown, bool (*stop)())
{
    TextWindow window(shown);
    if (!window.Open())
        return false;
    window.Stay(stop);
    return true;
}

bool ShowDesktopTextAside(const DesktopText& shown)
{
    auto copy = std::make_unique<DesktopText>(shown);
    const OwnedHandle thread(CreateThread(nullptr, 0, ShowAside, copy.get(), 0, nullptr));
    if (thread)
        copy.release(); // the thread's
    return static_cast<bool>(thread);
}
