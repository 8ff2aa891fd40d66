#include "lifecycle/breaks.h"

#include <iterator>

#include <windows.h>

#include "console/progress.h"
#include "console/prompt_line.h"
#include "engine/break.h"
#include "engine/state.h"
#include "platform/clock.h"
#include "platform/console.h"
#include "platform/console_keys.h"
#include "platform/console_typing.h"
#include "platform/lazy_library.h"
#include "platform/standard_handles.h"

namespace {

constexpr int breakCode = 3;
constexpr DWORD shutDownTime = 4000; // of the five seconds that the system grants
constexpr DWORD childTime = 500;     // for a child to end by the same Ctrl+C, before it is ended

OwnedHandle& MainThread()
{
    static OwnedHandle thread;
    return thread;
}

BOOL WINAPI HandleEvent(DWORD event) { return ConsoleBreakHandler(event); }

// A modifier that is held down while its window disappears would stay down for all other programs.
void ReleaseModifiers()
{
    static LazyFunction<decltype(SendInput)> sendInput(libraries::user32, "SendInput");
    INPUT keys[4] = {};
    constexpr WORD modifiers[] = {VK_MENU, VK_CONTROL, VK_SHIFT, VK_LWIN};
    for (std::size_t i = 0; i < std::size(keys); ++i) {
        keys[i].type = INPUT_KEYBOARD;
        keys[i].ki.wVk = modifiers[i];
        keys[i].ki.dwFlags = KEYEVENTF_KEYUP;
    }
    sendInput(static_cast<UINT>(std::size(keys)), keys, sizeof keys[0]);
}

// Services hear of everybody's log-off.
bool RunsForService()
{
    DWORD session = 0;
    return ProcessIdToSessionId(GetCurrentProcessId(), &session) && session == 0;
}

} // namespace

void EndChildren()
{
    for (void*& process : Tls().runningProcesses) {
        if (process && WaitForSingleObject(process, childTime) == WAIT_TIMEOUT)
            TerminateProcess(process, breakCode);
        process = nullptr;
    }
}

void InstallBreakHandler()
{
    MainThread() = DuplicateHandle(GetCurrentThread(), false);
    TakeBreaksHere();
    ResetBreakHandling();
}

void ResetBreakHandling()
{
    EnableSignals();
    ClearBreak();
    // A parent may have handed down that Ctrl+C is to be ignored.
    SetConsoleCtrlHandler(nullptr, FALSE);
    SetConsoleCtrlHandler(HandleEvent, FALSE);
    SetConsoleCtrlHandler(HandleEvent, TRUE);
}

int ConsoleBreakHandler(unsigned long event)
{
    if (event == break_event::logOff && RunsForService())
        return 1;
    const bool endsShell = break_event::EndsShell(event);
    if (endsShell)
        ReleaseModifiers();
    MarkBreak(event);
    // A queued call would do a console that is reading a line no good.
    if (!EndTypedLine())
        WakeForBreak();
    if (!endsShell)
        return 1;
    WaitForSingleObject(MainThread().Get(), shutDownTime);
    return 0;
}

void BreakHandler(unsigned event)
{
    RunQueuedCalls();
    TLS_VARIABLES& tls = Tls();
    if (event != break_event::controlC && tls.protectedOperation) {
        tls.breakPending = true;
        return;
    }
    const bool endsShell = break_event::EndsShell(event);
    TakeBreak(event);
    if ((tls.signalsHeld && !endsShell) || (aGlobals.breakOff != 0 && event == break_event::controlC))
        return;
    tls.breakPending = false;
    if (endsShell)
        aGlobals.exitRequested = 1;
    else {
        DropTypedKeys();
        DropPastedLines();
        HideProgress();
        WriteToConsole(u"^C\r\n");
    }
    if (!tls.Frame())
        tls.blocks = {};
    tls.breakHappened = true;
    tls.breakEvent = event;
    BreakOut(breakCode);
}

void BreakOut(int code)
{
    EndChildren();
    throw Break{code};
}
