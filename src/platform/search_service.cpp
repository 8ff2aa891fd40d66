#include "platform/search_service.h"

#include <cstring>

#include <windows.h>

#include "platform/lazy_library.h"
#include "platform/module.h"

namespace {

constinit LazyFunction<decltype(FindWindowW)> findWindow(libraries::user32, "FindWindowW");
constinit LazyFunction<decltype(RegisterClassW)> registerClass(libraries::user32, "RegisterClassW");
constinit LazyFunction<decltype(CreateWindowExW)> createWindow(libraries::user32, "CreateWindowExW");
constinit LazyFunction<decltype(DestroyWindow)> destroyWindow(libraries::user32, "DestroyWindow");
constinit LazyFunction<decltype(DefWindowProcW)> defaultProcedure(libraries::user32, "DefWindowProcW");
constinit LazyFunction<decltype(SetWindowLongPtrW)> setWindowLong(libraries::user32, "SetWindowLongPtrW");
constinit LazyFunction<decltype(GetWindowLongPtrW)> getWindowLong(libraries::user32, "GetWindowLongPtrW");
constinit LazyFunction<decltype(SendMessageTimeoutW)> sendMessage(libraries::user32, "SendMessageTimeoutW");
constinit LazyFunction<decltype(PeekMessageW)> peekMessage(libraries::user32, "PeekMessageW");
constinit LazyFunction<decltype(DispatchMessageW)> dispatchMessage(libraries::user32, "DispatchMessageW");
constinit LazyFunction<decltype(MsgWaitForMultipleObjects)> waitForMessages(libraries::user32,
                                                                            "MsgWaitForMultipleObjects");

constexpr wchar_t serviceWindow[] = L"EVERYTHING_TASKBAR_NOTIFICATION";
constexpr wchar_t ownWindowClass[] = L"MovacoreSearchAnswers";
constexpr ULONG_PTR queryMessage = 2; // the number of a query in UTF-16
constexpr DWORD answerMessage = 0;    // our own, told to the service with each query
constexpr DWORD longestWait = 10'000; // milliseconds

// What the service expects and answers: 32-bit numbers, then texts that end in NUL.
struct QueryHead {
    DWORD replyWindow; // window handles fit into 32 bits
    DWORD replyMessage;
    DWORD flags;
    DWORD offset;
    DWORD most;
};
struct AnswerHead {
    DWORD totalFolders, totalFiles, totalItems;
    DWORD folders, files, items;
    DWORD offset;
};
struct AnswerItem {
    DWORD flags;
    DWORD nameOffset; // bytes from the start of the answer
    DWORD pathOffset;
};
constexpr DWORD isDrive = 2;

constexpr DWORD matchesCase = 1;
constexpr DWORD matchesWords = 2;
constexpr DWORD matchesPath = 4;
constexpr DWORD isRegex = 8;

struct Answer {
    std::vector<char> bytes;
    bool arrived = false;
};

LRESULT CALLBACK AnswerProcedure(HWND window, UINT number, WPARAM first, LPARAM second)
{
    auto* answer = reinterpret_cast<Answer*>(getWindowLong(window, GWLP_USERDATA));
    if (number != WM_COPYDATA || !answer)
        return defaultProcedure(window, number, first, second);
    const auto* data = reinterpret_cast<const COPYDATASTRUCT*>(second);
    if (data->dwData != answerMessage)
        return FALSE;
    const char* bytes = static_cast<const char*>(data->lpData);
    answer->bytes.assign(bytes, bytes + data->cbData);
    answer->arrived = true;
    return TRUE;
}

class AnswerWindow {
public:
    explicit AnswerWindow(Answer& answer)
    {
        WNDCLASSW kind = {};
        kind.lpfnWndProc = AnswerProcedure;
        kind.lpszClassName = ownWindowClass;
        kind.hInstance = GetModuleHandleW(nullptr);
        registerClass(&kind); // a class that stands from the last time is as good
        window = createWindow(0, ownWindowClass, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, kind.hInstance,
                              nullptr);
        if (window)
            setWindowLong(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&answer));
    }
    AnswerWindow(const AnswerWindow&) = delete;
    AnswerWindow& operator=(const AnswerWindow&) = delete;
    ~AnswerWindow()
    {
        if (window)
            destroyWindow(window);
    }
    HWND Get() const { return window; }

private:
    HWND window = nullptr;
};

std::vector<char> QueryBytes(const ServiceQuery& query, HWND replyWindow)
{
    QueryHead head = {};
    head.replyWindow = static_cast<DWORD>(reinterpret_cast<ULONG_PTR>(replyWindow));
    head.replyMessage = answerMessage;
    head.flags = (query.matchesCase ? matchesCase : 0) | (query.wholeWords ? matchesWords : 0) |
                 (query.matchesPath ? matchesPath : 0) | (query.isRegex ? isRegex : 0);
    head.most = query.most;
    std::vector<char> bytes(sizeof head + (query.text.size() + 1) * sizeof(char16_t));
    std::memcpy(bytes.data(), &head, sizeof head);
    std::memcpy(bytes.data() + sizeof head, query.text.view().data(), query.text.size() * sizeof(char16_t));
    return bytes;
}

// The text at a place of the answer, "" for one outside of it.
CString TextAt(const std::vector<char>& bytes, DWORD offset)
{
    CString text;
    for (std::size_t at = offset; at + sizeof(char16_t) <= bytes.size(); at += sizeof(char16_t)) {
        char16_t unit = 0;
        std::memcpy(&unit, bytes.data() + at, sizeof unit);
        if (unit == 0)
            break;
        text.Append(unit);
    }
    return text;
}

void ReadAnswer(const std::vector<char>& bytes, std::vector<CString>& names)
{
    AnswerHead head = {};
    if (bytes.size() < sizeof head)
        return;
    std::memcpy(&head, bytes.data(), sizeof head);
    for (DWORD i = 0; i < head.items; ++i) {
        AnswerItem item = {};
        const std::size_t at = sizeof head + i * sizeof item;
        if (at + sizeof item > bytes.size())
            return;
        std::memcpy(&item, bytes.data() + at, sizeof item);
        CString name = TextAt(bytes, item.pathOffset);
        if ((item.flags & isDrive) == 0 && !name.empty() && name.back() != u'\\')
            name.Append(u'\\');
        names.push_back(name + TextAt(bytes, item.nameOffset));
    }
}

} // namespace

ServiceAnswer AskSearchService(const ServiceQuery& query, std::vector<CString>& names, void (*poll)())
{
    const HWND service = findWindow(serviceWindow, nullptr);
    if (!service)
        return ServiceAnswer::NoService;
    Answer answer;
    const AnswerWindow window(answer);
    if (!window.Get())
        return ServiceAnswer::NoAnswer;
    std::vector<char> bytes = QueryBytes(query, window.Get());
    COPYDATASTRUCT data = {queryMessage, static_cast<DWORD>(bytes.size()), bytes.data()};
    DWORD_PTR taken = 0;
    if (!sendMessage(service, WM_COPYDATA, reinterpret_cast<WPARAM>(window.Get()),
                     reinterpret_cast<LPARAM>(&data), SMTO_NORMAL, longestWait, &taken) ||
        !taken)
        return ServiceAnswer::NoAnswer;
    constexpr DWORD slice = 50;
    for (DWORD waited = 0; !answer.arrived && waited < longestWait; waited += slice) {
        MSG message;
        while (peekMessage(&message, nullptr, 0, 0, PM_REMOVE))
            dispatchMessage(&message);
        if (!answer.arrived)
            waitForMessages(0, nullptr, FALSE, slice, QS_ALLINPUT);
        poll();
    }
    if (!answer.arrived)
        return ServiceAnswer::NoAnswer;
    ReadAnswer(answer.bytes, names);
    return ServiceAnswer::Answered;
}
