#include "platform/process.h"

#include <algorithm>
#include <array>
#include <vector>

#include "platform/environment.h"
#include "platform/standard_handles.h"
#include "platform/turns.h"

namespace {

constexpr DWORD waitStep = 10;                    // milliseconds
constexpr std::size_t longestCommandLine = 32766; // units; not every system refuses what it would cut off

// The list of attributes that a start can carry.
class AttributeList {
public:
    AttributeList()
    {
        SIZE_T bytes = 0;
        InitializeProcThreadAttributeList(nullptr, maximum, 0, &bytes);
        memory.resize(bytes);
        usable = InitializeProcThreadAttributeList(Get(), maximum, 0, &bytes) != FALSE;
    }
    AttributeList(const AttributeList&) = delete;
    AttributeList& operator=(const AttributeList&) = delete;
    ~AttributeList()
    {
        if (usable)
            DeleteProcThreadAttributeList(Get());
    }

    LPPROC_THREAD_ATTRIBUTE_LIST Get()
    {
        return reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(memory.data());
    }
    // The value is not copied: it must live until the process has started.
    bool Add(DWORD_PTR attribute, void* value, std::size_t bytes)
    {
        return usable && UpdateProcThreadAttribute(Get(), 0, attribute, value, bytes, nullptr, nullptr);
    }

private:
    static constexpr DWORD maximum = 2;
    std::vector<std::byte> memory;
    bool usable = false;
};

// Inheritable forms of the standard handles, and the list of them that the system asks for: each one once.
struct InheritedHandles {
    std::array<HANDLE, 3> standard = {};
    std::array<OwnedHandle, 3> copies;
    std::vector<HANDLE> list;

    InheritedHandles(bool newConsole, const ProcessStart& start)
    {
        for (int number = 0; number < 3; ++number) {
            if (start.noHandles || (start.noInput && number == 0))
                TakeNothing(static_cast<std::size_t>(number));
            else
                Take(number, newConsole);
        }
    }

private:
    void TakeNothing(std::size_t number)
    {
        SECURITY_ATTRIBUTES inheritable = {sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
        copies[number] = OwnedHandle(CreateFileW(L"NUL", number == 0 ? GENERIC_READ : GENERIC_WRITE,
                                                 FILE_SHARE_READ | FILE_SHARE_WRITE, &inheritable,
                                                 OPEN_EXISTING, 0, nullptr));
        standard[number] = copies[number].Get();
        if (standard[number])
            list.push_back(standard[number]);
    }

    void Take(int number, bool newConsole)
    {
        const HANDLE handle = StandardHandle(number);
        if (!handle || handle == INVALID_HANDLE_VALUE)
            return;
        // A child with a console of its own must not write to ours; what is redirected stays redirected.
        if (newConsole && KindOfHandle(handle) == HandleKind::Console)
            return;
        const auto at = static_cast<std::size_t>(number);
        DWORD flags = 0;
        if (GetHandleInformation(handle, &flags) && (flags & HANDLE_FLAG_INHERIT)) {
            standard[at] = handle;
        } else {
            copies[at] = DuplicateHandle(handle, true);
            standard[at] = copies[at].Get();
        }
        if (standard[at] && std::find(list.begin(), list.end(), standard[at]) == list.end())
            list.push_back(standard[at]);
    }
};

void PlaceWindow(STARTUPINFOW& info, const ProcessStart& start)
{
    if (start.showWindow >= 0) {
        info.dwFlags |= STARTF_USESHOWWINDOW;
        info.wShowWindow = static_cast<WORD>(start.showWindow);
    }
    if (start.window.position) {
        info.dwFlags |= STARTF_USEPOSITION;
        info.dwX = static_cast<DWORD>(start.window.position->x);
        info.dwY = static_cast<DWORD>(start.window.position->y);
    }
    if (start.window.size) {
        info.dwFlags |= STARTF_USESIZE;
        info.dwXSize = static_cast<DWORD>(start.window.size->cx);
        info.dwYSize = static_cast<DWORD>(start.window.size->cy);
    }
}

void* Editable(CString& text) { return text.empty() ? nullptr : text.Edit(); }

} // namespace

ChildProcess::ChildProcess(HANDLE taken) noexcept : process(taken), processId(taken ? GetProcessId(taken) : 0)
{}

unsigned ChildProcess::Start(const ProcessStart& start)
{
    if (start.commandLine.size() > longestCommandLine)
        return ERROR_FILENAME_EXCED_RANGE;
    STARTUPINFOEXW info = {};
    info.StartupInfo.cb = sizeof info;
    PlaceWindow(info.StartupInfo, start);
    CString title(start.title);
    info.StartupInfo.lpTitle = static_cast<wchar_t*>(Editable(title));

    const bool newConsole =
        (start.creation & (CREATE_NEW_CONSOLE | CREATE_NO_WINDOW | DETACHED_PROCESS)) != 0;
    InheritedHandles handles(newConsole, start);
    AttributeList attributes;
    info.lpAttributeList = attributes.Get();
    if (!handles.list.empty()) {
        if (!attributes.Add(PROC_THREAD_ATTRIBUTE_HANDLE_LIST, handles.list.data(),
                            handles.list.size() * sizeof(HANDLE)))
            return GetLastError();
        info.StartupInfo.dwFlags |= STARTF_USESTDHANDLES;
        info.StartupInfo.hStdInput = handles.standard[0];
        info.StartupInfo.hStdOutput = handles.standard[1];
        info.StartupInfo.hStdError = handles.standard[2];
    }
    USHORT node = static_cast<USHORT>(start.node.value_or(0));
    if (start.node && !attributes.Add(PROC_THREAD_ATTRIBUTE_PREFERRED_NODE, &node, sizeof node))
        return GetLastError();

    CString commandLine(start.commandLine);
    CString environment(start.environment);
    DWORD creation = start.creation | EXTENDED_STARTUPINFO_PRESENT | CREATE_UNICODE_ENVIRONMENT;
    if (start.affinity)
        creation |= CREATE_SUSPENDED; // it must not run before its processors are known
    PROCESS_INFORMATION started = {};
    PublishEnvironment();
    if (!CreateProcessW(start.program.empty() ? nullptr : start.program.w(),
                        static_cast<wchar_t*>(Editable(commandLine)), nullptr, nullptr, !handles.list.empty(),
                        creation, Editable(environment),
                        start.directory.empty() ? nullptr : start.directory.w(), &info.StartupInfo, &started))
        return GetLastError();

    const OwnedHandle thread(started.hThread);
    process = OwnedHandle(started.hProcess);
    processId = started.dwProcessId;
    if (start.affinity) {
        SetProcessAffinityMask(process.Get(), static_cast<DWORD_PTR>(start.affinity));
        ResumeThread(thread.Get());
    }
    return 0;
}

bool ChildProcess::Wait(void (*poll)())
{
    for (;;) {
        DWORD waited = WAIT_FAILED;
        {
            const WaitingAside others;
            waited = WaitForSingleObjectEx(process.Get(), waitStep, TRUE);
        }
        switch (waited) {
        case WAIT_OBJECT_0: return true;
        case WAIT_FAILED: return false;
        default: break;
        }
        if (poll)
            poll();
    }
}

bool ChildProcess::HasEnded() const { return WaitForSingleObject(process.Get(), 0) == WAIT_OBJECT_0; }

std::optional<unsigned> ChildProcess::ExitCode() const
{
    DWORD code = 0;
    if (!process || !HasEnded() || !GetExitCodeProcess(process.Get(), &code))
        return std::nullopt;
    return code;
}

bool ChildProcess::Terminate(unsigned exitCode)
{
    return process && TerminateProcess(process.Get(), exitCode) != FALSE;
}
