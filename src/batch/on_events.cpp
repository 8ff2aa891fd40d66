#include "batch/on_events.h"

#include <windows.h>

#include "engine/batch_entry.h"
#include "engine/break.h"
#include "engine/command_entry.h"
#include "engine/results.h"
#include "engine/tables.h"
#include "platform/console_keys.h"
#include "platform/power_events.h"
#include "text/format.h"

namespace {

constexpr unsigned fromMouse =
    OnBit(OnEvent::LButton) | OnBit(OnEvent::MButton) | OnBit(OnEvent::RButton) | OnBit(OnEvent::DblClick);
constexpr unsigned fromPower = OnBit(OnEvent::Resume) | OnBit(OnEvent::Suspend);
constexpr unsigned fromOutside = fromMouse | fromPower;
// In the order in which those that happened together run.
constexpr OnEvent betweenCommands[] = {OnEvent::Error,    OnEvent::ErrorMsg, OnEvent::ErrorLevel,
                                       OnEvent::LButton,  OnEvent::MButton,  OnEvent::RButton,
                                       OnEvent::DblClick, OnEvent::Suspend,  OnEvent::Resume};

// Marks an event of the current frame as running for as long as it lives; the frame may end meanwhile.
class Running {
public:
    Running(TLS_VARIABLES& state, OnEvent event)
        : tls(state), bit(OnBit(event)), index(state.batchIndex), serial(state.Frame()->serial)
    {
        tls.Frame()->onRunning |= bit;
    }
    ~Running()
    {
        if (tls.batchIndex < index)
            return;
        BATCH_FRAME& frame = tls.frames[static_cast<std::size_t>(index)];
        if (frame.serial == serial)
            frame.onRunning &= ~bit;
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

private:
    TLS_VARIABLES& tls;
    unsigned bit;
    int index;
    unsigned serial;
};

// As the command of an IF whose condition is the first part of `text`. What IF itself answers concerns
// nobody.
int RunAsIf(CString text)
{
    const int row = FindRow(aInternalCommands, nInternalCommands, u"IF");
    TLS_VARIABLES& tls = Tls();
    const int internalResult = tls.lastInternalResult;
    const CString name = tls.commandName;
    const int code = aInternalCommands[row].handler(text);
    tls.commandName = name;
    tls.lastInternalResult = internalResult;
    return code;
}

int RunOnCommand(TLS_VARIABLES& tls, OnEvent event)
{
    const CString command = tls.Frame()->onCommands[static_cast<int>(event)];
    const Running running(tls, event);
    if (event == OnEvent::Condition)
        return RunAsIf(command);
    if (event == OnEvent::ErrorLevel)
        return RunAsIf(Format(u"ERRORLEVEL %s", command));
    return Command_S(command, line_flags::batch);
}

OnEvent EventOfBreak(unsigned event)
{
    switch (event) {
    case break_event::close: return OnEvent::Close;
    case break_event::logOff: return OnEvent::Logoff;
    case break_event::shutDown: return OnEvent::Shutdown;
    default: return OnEvent::Break;
    }
}

unsigned MouseEvents()
{
    const MouseClicks clicks = TakeMouseClicks();
    return (clicks.left ? OnBit(OnEvent::LButton) : 0) | (clicks.middle ? OnBit(OnEvent::MButton) : 0) |
           (clicks.right ? OnBit(OnEvent::RButton) : 0) | (clicks.twice ? OnBit(OnEvent::DblClick) : 0);
}

unsigned PowerEvents()
{
    const PowerChanges changes = TakePowerChanges();
    return (changes.suspended ? OnBit(OnEvent::Suspend) : 0) | (changes.resumed ? OnBit(OnEvent::Resume) : 0);
}

bool AnyFrameWaitsFor(unsigned events)
{
    for (const BATCH_FRAME& frame : Tls().frames)
        if ((frame.onSet & events) != 0)
            return true;
    return false;
}

void CollectEvents(TLS_VARIABLES& tls, BATCH_FRAME& frame)
{
    if (tls.errorLevel.TakeTouched())
        frame.onWaiting |= OnBit(OnEvent::ErrorLevel);
    if ((frame.onSet & fromMouse) != 0)
        frame.onWaiting |= MouseEvents();
    if ((frame.onSet & fromPower) != 0)
        frame.onWaiting |= PowerEvents();
    frame.onWaiting &= frame.onSet;
}

} // namespace

void SetOnCommand(BATCH_FRAME& frame, OnEvent event, CString command)
{
    const unsigned bit = OnBit(event);
    const bool hadErrors = (frame.onSet & OnBit(OnEvent::Error)) != 0;
    frame.onSet = command.empty() ? frame.onSet & ~bit : frame.onSet | bit;
    frame.onWaiting &= ~bit;
    frame.onCommands[static_cast<int>(event)] = std::move(command);
    // With a command of ours for errors no box of the system is to ask about drives that are not ready.
    const bool hasErrors = (frame.onSet & OnBit(OnEvent::Error)) != 0;
    if (hasErrors && !hadErrors)
        frame.savedErrorMode = SetErrorMode(SEM_FAILCRITICALERRORS);
    else if (hadErrors && !hasErrors)
        SetErrorMode(frame.savedErrorMode);
    if (event == OnEvent::ErrorLevel)
        Tls().errorLevel.TakeTouched();
    if ((bit & fromMouse) != 0)
        WatchMouse(AnyFrameWaitsFor(fromMouse));
    if ((bit & fromPower) != 0)
        WatchPower(AnyFrameWaitsFor(fromPower));
}

void ReleaseOnCommands(BATCH_FRAME& frame)
{
    for (int event = 0; frame.onSet != 0 && event < static_cast<int>(OnEvent::Count); ++event)
        if ((frame.onSet & OnBit(static_cast<OnEvent>(event))) != 0)
            SetOnCommand(frame, static_cast<OnEvent>(event), CString());
}

int RunOnCommands()
{
    TLS_VARIABLES& tls = Tls();
    const int index = tls.batchIndex;
    const unsigned serial = tls.Frame()->serial;
    CollectEvents(tls, *tls.Frame());
    int code = result::success;
    for (const OnEvent event : betweenCommands) {
        // Each command may have ended the frame.
        BATCH_FRAME* frame = tls.Frame();
        if (tls.batchIndex != index || frame->serial != serial || frame->readOffset < 0 || EndsLine(code))
            break;
        const unsigned due = frame->onWaiting & ~frame->onRunning & OnBit(event);
        frame->onWaiting &= ~OnBit(event);
        if (due != 0)
            code = RunOnCommand(tls, event);
    }
    return code;
}

int TestOnCondition(int code)
{
    TLS_VARIABLES& tls = Tls();
    const BATCH_FRAME* frame = tls.Frame();
    constexpr unsigned bit = OnBit(OnEvent::Condition);
    if (!frame || (frame->onSet & ~frame->onRunning & bit) == 0 || frame->readOffset < 0 ||
        code == result::abandonBatch)
        return code;
    const int answer = RunOnCommand(tls, OnEvent::Condition);
    return EndsLine(answer) ? answer : code;
}

bool CallerAwaitsBreak()
{
    const TLS_VARIABLES& tls = Tls();
    const unsigned bit = OnBit(EventOfBreak(tls.breakEvent));
    for (int i = tls.batchIndex - 1; i >= 0; --i) {
        const BATCH_FRAME& frame = tls.frames[static_cast<std::size_t>(i)];
        if ((frame.onSet & ~frame.onRunning & bit) != 0)
            return true;
    }
    return false;
}

bool RunOnBreak(int& code)
{
    TLS_VARIABLES& tls = Tls();
    const OnEvent event = EventOfBreak(tls.breakEvent);
    const BATCH_FRAME& frame = *tls.Frame();
    if ((frame.onSet & ~frame.onRunning & OnBit(event)) == 0 || frame.readOffset < 0)
        return false;
    code = RunOnCommand(tls, event);
    return true;
}
