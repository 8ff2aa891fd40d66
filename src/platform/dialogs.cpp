#include "platform/dialogs.h"

#include <cstdint>
#include <cstring>
#include <vector>

#include <windows.h>

#include <commctrl.h>
#include <commdlg.h>

#include "platform/com_objects.h"
#include "platform/desktop.h"
#include "platform/dialog_template.h"
#include "platform/file_facts.h"
#include "platform/lazy_library.h"

#include <initguid.h>

#include <shobjidl.h>

namespace {

constinit LazyLibrary commonDialogs(L"comdlg32.dll");
constinit LazyLibrary commonControls(L"comctl32.dll");
constinit LazyFunction<decltype(GetOpenFileNameW)> getOpenFileName(commonDialogs, "GetOpenFileNameW");
constinit LazyFunction<decltype(InitCommonControlsEx)> initControls(commonControls, "InitCommonControlsEx");
constinit LazyFunction<decltype(SHCreateItemFromParsingName)>
    itemFromName(libraries::shell32, "SHCreateItemFromParsingName", E_NOTIMPL);
constinit LazyFunction<decltype(DialogBoxIndirectParamW)> dialogBox(libraries::user32,
                                                                    "DialogBoxIndirectParamW");
constinit LazyFunction<decltype(EndDialog)> endDialog(libraries::user32, "EndDialog");
constinit LazyFunction<decltype(SendDlgItemMessageW)> sendItemMessage(libraries::user32,
                                                                      "SendDlgItemMessageW");
constinit LazyFunction<decltype(SetWindowLongPtrW)> setWindowLong(libraries::user32, "SetWindowLongPtrW");
constinit LazyFunction<decltype(GetWindowLongPtrW)> getWindowLong(libraries::user32, "GetWindowLongPtrW");

// A box with calendar, perhaps a clock, and two buttons.
class DateBox {
public:
    explicit DateBox(bool withTime)
        : hasTime(withTime), height(hasTime ? 154 : 134),
          box(WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_VISIBLE | DS_CENTER | DS_MODALFRAME, 170, height, {})
    {
        const auto buttons = static_cast<short>(height - 22);
        box.Add(u"SysMonthCal32", WS_TABSTOP, {7, 7, 156, 100}, calendarItem, {});
        if (hasTime)
            box.Add(u"SysDateTimePick32", WS_TABSTOP | DTS_TIMEFORMAT, {7, 112, 156, 14}, timeItem, {});
        box.Add(ControlClass::Button, WS_TABSTOP | BS_DEFPUSHBUTTON, {55, buttons, 50, 14}, IDOK, u"OK");
        box.Add(ControlClass::Button, WS_TABSTOP, {112, buttons, 50, 14}, IDCANCEL, u"Cancel");
    }

    std::optional<ClockTime> Show()
    {
        INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_DATE_CLASSES};
        if (!initControls(&controls))
            return std::nullopt;
        const INT_PTR answer =
            dialogBox(nullptr, box.Get(), ConsoleWindow(), HandleMessage, reinterpret_cast<LPARAM>(this));
        if (answer != IDOK)
            return std::nullopt;
        ClockTime time;
        time.year = day.wYear;
        time.month = day.wMonth;
        time.day = day.wDay;
        time.hour = hasTime ? clock.wHour : 0;
        time.minute = hasTime ? clock.wMinute : 0;
        time.second = hasTime ? clock.wSecond : 0;
        return time;
    }

private:
    static constexpr WORD calendarItem = 100;
    static constexpr WORD timeItem = 101;

    static INT_PTR CALLBACK HandleMessage(HWND window, UINT message, WPARAM w, LPARAM l)
    {
        if (message == WM_INITDIALOG) {
            setWindowLong(window, GWLP_USERDATA, l);
            return TRUE;
        }
        if (message != WM_COMMAND || (LOWORD(w) != IDOK && LOWORD(w) != IDCANCEL))
            return FALSE;
        auto* shown = reinterpret_cast<DateBox*>(getWindowLong(window, GWLP_USERDATA));
        sendItemMessage(window, calendarItem, MCM_GETCURSEL, 0, reinterpret_cast<LPARAM>(&shown->day));
        if (shown->hasTime)
            sendItemMessage(window, timeItem, DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&shown->clock));
        endDialog(window, LOWORD(w));
        return TRUE;
    }

    bool hasTime;
    short height;
    DialogTemplate box;
    SYSTEMTIME day = {};
    SYSTEMTIME clock = {};
};

CString ItemName(IShellItem* item)
{
    wchar_t* name = nullptr;
    CString text;
    if (SUCCEEDED(item->GetDisplayName(SIGDN_FILESYSPATH, &name)))
        text = reinterpret_cast<const char16_t*>(name);
    FreeComMemory(name);
    return text;
}

} // namespace

CString PickFile(std::u16string_view folder, std::u16string_view pattern)
{
    constexpr DWORD longest = 32768;
    CString name;
    wchar_t* units = reinterpret_cast<wchar_t*>(name.Edit(longest));
    units[0] = L'\0';
    const CString start(folder);
    CString filter(pattern.empty() ? std::u16string_view(u"*.*") : pattern);
    const CString shown(filter);
    filter.Append(u'\0').Append(shown).Append(std::u16string_view(u"\0\0", 2));
    OPENFILENAMEW request = {};
    request.lStructSize = sizeof request;
    request.hwndOwner = ConsoleWindow();
    request.lpstrFilter = filter.w();
    request.lpstrFile = units;
    request.nMaxFile = longest;
    request.lpstrInitialDir = start.empty() ? nullptr : start.w();
    request.Flags = OFN_EXPLORER | OFN_NOCHANGEDIR | OFN_HIDEREADONLY | OFN_FILEMUSTEXIST;
    if (!getOpenFileName(&request))
        return {};
    name.SetLength(std::char_traits<wchar_t>::length(units));
    return name;
}

CString PickFolder(std::u16string_view folder, std::u16string_view title)
{
    ComPointer<IFileOpenDialog> dialog;
    if (!CreateComObject(CLSID_FileOpenDialog, __uuidof(IFileOpenDialog),
                         reinterpret_cast<void**>(dialog.Receive())))
        return {};
    DWORD options = 0;
    dialog->GetOptions(&options);
    dialog->SetOptions(options | FOS_PICKFOLDERS | FOS_FORCEFILESYSTEM | FOS_NOCHANGEDIR);
    const CString titleText(title);
    if (!title.empty())
        dialog->SetTitle(titleText.w());
    ComPointer<IShellItem> start;
    if (!folder.empty() && SUCCEEDED(itemFromName(FullPathName(folder).w(), nullptr, __uuidof(IShellItem),
                                                  reinterpret_cast<void**>(start.Receive()))))
        dialog->SetFolder(start.Get());
    ComPointer<IShellItem> picked;
    if (FAILED(dialog->Show(ConsoleWindow())) || FAILED(dialog->GetResult(picked.Receive())) || !picked)
        return {};
    return ItemName(picked.Get());
}

std::optional<ClockTime> PickDate(bool withTime) { return DateBox(withTime).Show(); }
