#include "platform/message_boxes.h"

#include <algorithm>

#include <commctrl.h>

#include "platform/clock.h"
#include "platform/desktop.h"
#include "platform/dialog_template.h"
#include "platform/lazy_library.h"

namespace {

constinit LazyLibrary commonControls(L"comctl32.dll");
constinit LazyFunction<decltype(TaskDialogIndirect)> taskDialog(commonControls, "TaskDialogIndirect",
                                                                E_NOTIMPL);
constinit LazyFunction<decltype(MessageBoxW)> messageBox(libraries::user32, "MessageBoxW");
constinit LazyFunction<decltype(DialogBoxIndirectParamW)> dialogBox(libraries::user32,
                                                                    "DialogBoxIndirectParamW", -1);
constinit LazyFunction<decltype(EndDialog)> endDialog(libraries::user32, "EndDialog");
constinit LazyFunction<decltype(SetWindowsHookExW)> setHook(libraries::user32, "SetWindowsHookExW");
constinit LazyFunction<decltype(UnhookWindowsHookEx)> unhook(libraries::user32, "UnhookWindowsHookEx");
constinit LazyFunction<decltype(CallNextHookEx)> callNextHook(libraries::user32, "CallNextHookEx");
constinit LazyFunction<decltype(SetTimer)> setTimer(libraries::user32, "SetTimer");
constinit LazyFunction<decltype(KillTimer)> killTimer(libraries::user32, "KillTimer");
constinit LazyFunction<decltype(SetWindowPos)> setWindowPos(libraries::user32, "SetWindowPos");
constinit LazyFunction<decltype(SetForegroundWindow)> setForeground(libraries::user32, "SetForegroundWindow");
constinit LazyFunction<decltype(GetWindowRect)> getWindowRect(libraries::user32, "GetWindowRect");
constinit LazyFunction<decltype(GetDlgItem)> getItem(libraries::user32, "GetDlgItem");
constinit LazyFunction<decltype(SetFocus)> setFocus(libraries::user32, "SetFocus");
constinit LazyFunction<decltype(SendDlgItemMessageW)> sendItemMessage(libraries::user32,
                                                                      "SendDlgItemMessageW");
constinit LazyFunction<decltype(SendMessageW)> sendMessage(libraries::user32, "SendMessageW");
constinit LazyFunction<decltype(GetDlgItemTextW)> getItemText(libraries::user32, "GetDlgItemTextW");

constexpr UINT tick = 100; // milliseconds

// Windows has two libraries of common controls under one name, and gives the newer one, which alone knows
// task dialogs, to those who ask for it by a manifest (cmake/controls.rc). Without it the older one is used.
class NewerControls {
public:
    NewerControls()
    {
        HMODULE ours = nullptr;
        GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                               GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                           reinterpret_cast<const wchar_t*>(&commonControls), &ours);
        ACTCTXW context = {};
        context.cbSize = sizeof context;
        context.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
        context.hModule = ours;
        context.lpResourceName = MAKEINTRESOURCEW(manifest);
        wchar_t path[MAX_PATH + 1] = L"";
        GetModuleFileNameW(ours, path, MAX_PATH);
        context.lpSource = path;
        handle = CreateActCtxW(&context);
        active = handle != INVALID_HANDLE_VALUE && ActivateActCtx(handle, &cookie);
    }
    ~NewerControls()
    {
        if (active)
            DeactivateActCtx(0, cookie);
        if (handle != INVALID_HANDLE_VALUE)
            ReleaseActCtx(handle);
    }
    NewerControls(const NewerControls&) = delete;
    NewerControls& operator=(const NewerControls&) = delete;

private:
    static constexpr int manifest = 200;
    HANDLE handle = INVALID_HANDLE_VALUE;
    ULONG_PTR cookie = 0;
    bool active = false;
};

// The box that this thread shows: watched by a timer of the thread, whose messages the box itself hands out.
class WatchedBox {
public:
    explicit WatchedBox(const BoxManners& of, bool isTaskBox = false)
        : manners(of), taskBox(isTaskBox), end(Ticks() + of.milliseconds.value_or(0))
    {
        before = current;
        current = this;
        timer = setTimer(nullptr, 0, tick, Look);
    }
    ~WatchedBox()
    {
        killTimer(nullptr, timer);
        current = before;
    }
    WatchedBox(const WatchedBox&) = delete;
    WatchedBox& operator=(const WatchedBox&) = delete;

    // The box is about to be seen.
    void Opens(HWND box)
    {
        if (window)
            return;
        window = box;
        const POINT at = manners.place ? Seen(*manners.place) : POINT{};
        setWindowPos(window, manners.topmost ? HWND_TOPMOST : HWND_TOP, at.x, at.y, 0, 0,
                     SWP_NOSIZE | (manners.place ? 0U : UINT{SWP_NOMOVE}));
        setForeground(window);
    }
    int Answer(int given) const { return ended != 0 ? ended : given; }

    static WatchedBox* Current() { return current; }

private:
    // The place nearest to this one at which all of the box can be seen: what is off the screen nobody
    // answers.
    POINT Seen(POINT wanted) const
    {
        RECT box = {};
        getWindowRect(window, &box);
        const auto within = [](LONG at, LONG size, int first, int all) {
            return std::max<LONG>(std::min<LONG>(at, first + all - size), first);
        };
        return {within(wanted.x, box.right - box.left, ReadSystemMetric(SM_XVIRTUALSCREEN),
                       ReadSystemMetric(SM_CXVIRTUALSCREEN)),
                within(wanted.y, box.bottom - box.top, ReadSystemMetric(SM_YVIRTUALSCREEN),
                       ReadSystemMetric(SM_CYVIRTUALSCREEN))};
    }

    static void CALLBACK Look(HWND, UINT, UINT_PTR, DWORD)
    {
        if (!current || !current->window || current->ended != 0)
            return;
        if (current->manners.stop && current->manners.stop())
            current->Close(box_answer::stopped);
        else if (current->manners.milliseconds && Ticks() >= current->end)
            current->Close(box_answer::timedOut);
    }

    void Close(int why)
    {
        ended = why;
        if (taskBox)
            sendMessage(window, TDM_CLICK_BUTTON, IDCANCEL, 0);
        else
            endDialog(window, IDCANCEL);
    }

    static thread_local WatchedBox* current;

    const BoxManners& manners;
    bool taskBox;
    std::uint64_t end;
    WatchedBox* before = nullptr;
    UINT_PTR timer = 0;
    HWND window = nullptr;
    int ended = 0;
};
thread_local WatchedBox* WatchedBox::current = nullptr;

LRESULT CALLBACK SeeActivation(int code, WPARAM window, LPARAM details)
{
    if (code == HCBT_ACTIVATE && WatchedBox::Current())
        WatchedBox::Current()->Opens(reinterpret_cast<HWND>(window));
    return callNextHook(nullptr, code, window, details);
}

constexpr std::uint16_t promptItem = 100;
constexpr std::uint16_t editItem = 101;

INT_PTR CALLBACK HandleTextBox(HWND window, UINT message, WPARAM w, LPARAM l)
{
    static constinit LazyFunction<decltype(SetWindowLongPtrW)> setWindowLong(libraries::user32,
                                                                             "SetWindowLongPtrW");
    static constinit LazyFunction<decltype(GetWindowLongPtrW)> getWindowLong(libraries::user32,
                                                                             "GetWindowLongPtrW");
    if (message == WM_INITDIALOG) {
        setWindowLong(window, GWLP_USERDATA, l);
        const auto* box = reinterpret_cast<const TextBox*>(l);
        sendItemMessage(window, editItem, EM_SETLIMITTEXT, box->longest, 0);
        sendItemMessage(window, editItem, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(box->text.w()));
        sendItemMessage(window, editItem, EM_SETSEL, 0, -1);
        if (WatchedBox::Current())
            WatchedBox::Current()->Opens(window);
        setFocus(getItem(window, editItem));
        return FALSE;
    }
    if (message != WM_COMMAND || (LOWORD(w) != IDOK && LOWORD(w) != IDCANCEL))
        return FALSE;
    auto* box = reinterpret_cast<TextBox*>(getWindowLong(window, GWLP_USERDATA));
    if (LOWORD(w) == IDOK) {
        const auto room = static_cast<int>(box->longest) + 1;
        wchar_t* units = reinterpret_cast<wchar_t*>(box->text.Edit(static_cast<std::size_t>(room)));
        box->text.SetLength(getItemText(window, editItem, units, room));
    }
    endDialog(window, LOWORD(w));
    return TRUE;
}

// Rows of about sixty letters.
short PromptRows(std::u16string_view prompt)
{
    constexpr std::size_t lettersPerRow = 60;
    constexpr std::size_t mostRows = 20;
    std::size_t rows = 0;
    for (bool more = true; more;) {
        const std::size_t end = std::min(prompt.find(u'\n'), prompt.size());
        rows += end / lettersPerRow + 1;
        more = end < prompt.size();
        prompt.remove_prefix(more ? end + 1 : end);
    }
    return static_cast<short>(std::min(rows, mostRows));
}

std::vector<TASKDIALOG_BUTTON> Buttons(const std::vector<CString>& texts, int first)
{
    std::vector<TASKDIALOG_BUTTON> buttons;
    for (const CString& text : texts)
        buttons.push_back({first++, text.w()});
    return buttons;
}

HRESULT CALLBACK SeeTaskBox(HWND window, UINT message, WPARAM, LPARAM, LONG_PTR)
{
    if (message == TDN_CREATED && WatchedBox::Current())
        WatchedBox::Current()->Opens(window);
    return S_OK;
}

} // namespace

int ShowMessageBox(const CString& title, const CString& text, unsigned style, const BoxManners& manners)
{
    WatchedBox watched(manners);
    const HHOOK hook = setHook(WH_CBT, SeeActivation, nullptr, GetCurrentThreadId());
    const int given = messageBox(nullptr, text.w(), title.w(), style);
    if (hook)
        unhook(hook);
    return watched.Answer(given);
}

int ShowTextBox(TextBox& box, const BoxManners& manners)
{
    constexpr short width = 260;
    constexpr short rowHeight = 8;
    const auto promptHeight = static_cast<short>(PromptRows(box.prompt) * rowHeight);
    const auto editTop = static_cast<short>(promptHeight + 12);
    const auto buttonTop = static_cast<short>(editTop + 21);
    DialogTemplate dialog(WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_CENTER, width,
                          static_cast<short>(buttonTop + 21), box.title);
    dialog.Add(ControlClass::Static, SS_NOPREFIX, {7, 7, width - 14, promptHeight}, promptItem, box.prompt);
    dialog.Add(ControlClass::Edit,
               WS_TABSTOP | WS_BORDER | ES_AUTOHSCROLL | (box.hidden ? DWORD{ES_PASSWORD} : 0) |
                   (box.digits ? DWORD{ES_NUMBER} : 0),
               {7, editTop, width - 14, 14}, editItem, {});
    dialog.Add(ControlClass::Button, WS_TABSTOP | BS_DEFPUSHBUTTON, {width - 114, buttonTop, 50, 14}, IDOK,
               box.okText);
    dialog.Add(ControlClass::Button, WS_TABSTOP, {width - 57, buttonTop, 50, 14}, IDCANCEL, box.cancelText);
    WatchedBox watched(manners);
    const INT_PTR given =
        dialogBox(nullptr, dialog.Get(), nullptr, HandleTextBox, reinterpret_cast<LPARAM>(&box));
    return watched.Answer(given < 0 ? box_answer::notShown : static_cast<int>(given));
}

int ShowTaskBox(TaskBox& box, const BoxManners& manners)
{
    const std::vector<TASKDIALOG_BUTTON> buttons = Buttons(box.buttons, firstOwnButton);
    const std::vector<TASKDIALOG_BUTTON> choices = Buttons(box.choices, 1);
    TASKDIALOGCONFIG config = {};
    config.cbSize = sizeof config;
    config.dwFlags = TDF_ALLOW_DIALOG_CANCELLATION | TDF_EXPAND_FOOTER_AREA |
                     (box.links && !buttons.empty() ? TDF_USE_COMMAND_LINKS : 0) |
                     (box.checked ? TDF_VERIFICATION_FLAG_CHECKED : 0);
    config.dwCommonButtons = static_cast<TASKDIALOG_COMMON_BUTTON_FLAGS>(box.commonButtons);
    const auto textOf = [](const CString& text) { return text.empty() ? nullptr : text.w(); };
    config.pszWindowTitle = textOf(box.title);
    config.pszMainIcon = box.icon;
    config.pszMainInstruction = textOf(box.instruction);
    config.pszContent = textOf(box.text);
    config.cButtons = static_cast<UINT>(buttons.size());
    config.pButtons = buttons.data();
    config.nDefaultButton = box.defaultButton;
    config.cRadioButtons = static_cast<UINT>(choices.size());
    config.pRadioButtons = choices.data();
    config.pszVerificationText = textOf(box.check);
    config.pszExpandedInformation = textOf(box.more);
    config.pszFooter = textOf(box.footer);
    config.pfCallback = SeeTaskBox;
    const NewerControls controls;
    WatchedBox watched(manners, true);
    int button = 0;
    int chosen = 0;
    BOOL checked = FALSE;
    if (FAILED(taskDialog(&config, &button, &chosen, &checked)))
        return box_answer::notShown;
    box.chosen = chosen;
    box.checked = checked != FALSE;
    return watched.Answer(button);
}
