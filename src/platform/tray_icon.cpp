#include "platform/tray_icon.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include <shellapi.h>

#include "platform/handle.h"
#include "platform/lazy_library.h"
#include "platform/window_changes.h"

namespace {

constinit LazyFunction<decltype(Shell_NotifyIconW)> notifyIcon(libraries::shell32, "Shell_NotifyIconW");
constinit LazyFunction<decltype(RegisterClassW)> registerClass(libraries::user32, "RegisterClassW");
constinit LazyFunction<decltype(CreateWindowExW)> createWindow(libraries::user32, "CreateWindowExW");
constinit LazyFunction<decltype(DefWindowProcW)> defaultProcedure(libraries::user32, "DefWindowProcW");
constinit LazyFunction<decltype(GetMessageW)> getMessage(libraries::user32, "GetMessageW", -1);
constinit LazyFunction<decltype(DispatchMessageW)> dispatchMessage(libraries::user32, "DispatchMessageW");
constinit LazyFunction<decltype(SendMessageW)> sendMessage(libraries::user32, "SendMessageW");
constinit LazyFunction<decltype(SendMessageTimeoutW)> sendMessageTimeout(libraries::user32,
                                                                         "SendMessageTimeoutW");
constinit LazyFunction<decltype(GetClassLongPtrW)> getClassLong(libraries::user32, "GetClassLongPtrW");
constinit LazyFunction<decltype(GetWindowTextW)> getWindowText(libraries::user32, "GetWindowTextW");
constinit LazyFunction<decltype(LoadIconW)> loadIcon(libraries::user32, "LoadIconW");
constinit LazyFunction<decltype(LoadImageW)> loadImage(libraries::user32, "LoadImageW");
constinit LazyFunction<decltype(SetTimer)> setTimer(libraries::user32, "SetTimer");
constinit LazyFunction<decltype(KillTimer)> killTimer(libraries::user32, "KillTimer");

constexpr UINT addIcon = WM_APP;       // lParam: TrayRequest
constexpr UINT iconEvent = WM_APP + 1; // from the icons; wParam: the icon's number
constexpr UINT clearIcons = WM_APP + 2;
constexpr UINT askNotice = WM_APP + 3; // wParam: the notice's number
constexpr wchar_t className[] = L"MovacoreTray";

struct TrayRequest {
    HWND window = nullptr;          // to be put away, or
    const Notice* notice = nullptr; // to be shown
};

struct TrayIcon {
    UINT number = 0;
    HWND window = nullptr; // null for a notice
};

// Of the tray's thread alone.
struct TrayIcons {
    HWND owner = nullptr;
    UINT lastNumber = 0;
    std::vector<TrayIcon> icons;
    UINT lastNotice = 0;
    NoticeEnd lastEnd = NoticeEnd::Shown;
};
TrayIcons tray;

template <std::size_t size> void CopyText(wchar_t (&target)[size], std::u16string_view text)
{
    const std::size_t count = std::min(text.size(), size - 1);
    std::memcpy(target, text.data(), count * sizeof(wchar_t));
    target[count] = L'\0';
}

NOTIFYICONDATAW DataOf(UINT number)
{
    NOTIFYICONDATAW data = {};
    data.cbSize = sizeof data;
    data.hWnd = tray.owner;
    data.uID = number;
    return data;
}

HICON IconOf(HWND window)
{
    constexpr UINT patience = 200; // milliseconds
    DWORD_PTR icon = 0;
    if (window) {
        sendMessageTimeout(window, WM_GETICON, ICON_SMALL2, 0, SMTO_ABORTIFHUNG, patience, &icon);
        if (icon == 0)
            icon = getClassLong(window, GCLP_HICONSM);
        if (icon == 0)
            icon = getClassLong(window, GCLP_HICON);
    }
    return icon != 0 ? reinterpret_cast<HICON>(icon)
                     : loadIcon(nullptr, reinterpret_cast<const wchar_t*>(IDI_APPLICATION));
}

// False when the picture cannot be read.
bool Describe(const Notice& notice, NOTIFYICONDATAW& data)
{
    constexpr DWORD icons[] = {NIIF_NONE, NIIF_INFO, NIIF_WARNING, NIIF_ERROR};
    data.uFlags |= NIF_INFO;
    data.dwInfoFlags = icons[static_cast<int>(notice.icon)] | (notice.quiet ? DWORD{NIIF_NOSOUND} : DWORD{0});
    CopyText(data.szTip, notice.title);
    CopyText(data.szInfoTitle, notice.title);
    CopyText(data.szInfo, notice.text);
    if (notice.picture.empty())
        return true;
    data.hBalloonIcon = static_cast<HICON>(
        loadImage(nullptr, notice.picture.w(), IMAGE_ICON, 0, 0, LR_LOADFROMFILE | LR_DEFAULTSIZE));
    data.dwInfoFlags |= NIIF_USER | NIIF_LARGE_ICON;
    return data.hBalloonIcon != nullptr;
}

UINT Add(const TrayRequest& request)
{
    NOTIFYICONDATAW data = DataOf(++tray.lastNumber);
    data.uFlags = NIF_ICON | NIF_MESSAGE | NIF_TIP;
    data.uCallbackMessage = iconEvent;
    data.hIcon = IconOf(request.window);
    if (request.window)
        getWindowText(request.window, data.szTip, static_cast<int>(std::size(data.szTip)));
    if (request.notice && !Describe(*request.notice, data))
        return 0;
    if (!notifyIcon(NIM_ADD, &data))
        return 0;
    tray.icons.push_back({data.uID, request.window});
    if (request.window) {
        ShowWindowAs(request.window, WindowShow::Hidden);
    } else {
        tray.lastNotice = data.uID;
        tray.lastEnd = NoticeEnd::Shown;
        setTimer(tray.owner, data.uID, static_cast<UINT>(request.notice->milliseconds), nullptr);
    }
    return data.uID;
}

void Remove(UINT number, NoticeEnd end)
{
    const auto found = std::find_if(tray.icons.begin(), tray.icons.end(),
                                    [number](const TrayIcon& icon) { return icon.number == number; });
    if (found == tray.icons.end())
        return;
    const HWND window = found->window;
    tray.icons.erase(found);
    NOTIFYICONDATAW data = DataOf(number);
    notifyIcon(NIM_DELETE, &data);
    if (window)
        BringToFront(window);
    else
        killTimer(tray.owner, number);
    if (number == tray.lastNotice)
        tray.lastEnd = end;
}

// A click on the icon of a window brings it back; a notice ends as Windows says.
void HandleIconEvent(UINT number, UINT event)
{
    switch (event) {
    case WM_LBUTTONUP:
    case WM_RBUTTONUP:
    case NIN_BALLOONUSERCLICK: return Remove(number, NoticeEnd::Clicked);
    case NIN_BALLOONTIMEOUT: return Remove(number, NoticeEnd::Closed);
    default: return;
    }
}

LRESULT CALLBACK HandleMessage(HWND window, UINT message, WPARAM w, LPARAM l)
{
    switch (message) {
    case addIcon: return Add(*reinterpret_cast<const TrayRequest*>(l));
    case clearIcons:
        while (!tray.icons.empty())
            Remove(tray.icons.back().number, NoticeEnd::Closed);
        return 0;
    case askNotice: return static_cast<LRESULT>(w == tray.lastNotice ? tray.lastEnd : NoticeEnd::Closed);
    case WM_TIMER: Remove(static_cast<UINT>(w), NoticeEnd::TimedOut); return 0;
    case iconEvent: HandleIconEvent(static_cast<UINT>(w), LOWORD(l)); return 0;
    default: return defaultProcedure(window, message, w, l);
    }
}

DWORD WINAPI RunTray(void* ready)
{
    WNDCLASSW description = {};
    description.lpfnWndProc = HandleMessage;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = className;
    registerClass(&description);
    tray.owner = createWindow(0, className, L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                              description.hInstance, nullptr);
    SetEvent(ready);
    MSG message;
    while (tray.owner && getMessage(&message, nullptr, 0, 0) > 0)
        dispatchMessage(&message);
    return 0;
}

bool StartTray()
{
    if (tray.owner)
        return true;
    const OwnedHandle ready(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    const OwnedHandle thread(CreateThread(nullptr, 0, RunTray, ready.Get(), 0, nullptr));
    if (!thread)
        return false;
    WaitForSingleObject(ready.Get(), INFINITE);
    return tray.owner != nullptr;
}

unsigned Ask(const TrayRequest& request)
{
    return StartTray() ? static_cast<unsigned>(
                             sendMessage(tray.owner, addIcon, 0, reinterpret_cast<LPARAM>(&request)))
                       : 0;
}

} // namespace

bool HideInTray(HWND window) { return Ask({window, nullptr}) != 0; }

unsigned ShowNotice(const Notice& notice) { return Ask({nullptr, &notice}); }

NoticeEnd QueryNotice(unsigned number)
{
    return static_cast<NoticeEnd>(sendMessage(tray.owner, askNotice, number, 0));
}

void ClearTray()
{
    if (tray.owner)
        sendMessage(tray.owner, clearIcons, 0, 0);
}
