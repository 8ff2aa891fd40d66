#include "engine/break.h"

#include <atomic>

#include <windows.h>

#include "engine/state.h"
#include "platform/clock.h"
#include "platform/standard_handles.h"

namespace {

// Reached from the event thread, so it stands outside the per-thread and engine-wide records.
struct BreakMark {
    std::atomic<unsigned> waiting{0}; // the event's number + 1
    std::atomic<DWORD> threadId{0};
    OwnedHandle thread;
    std::atomic<bool> workersTold{false};
};

BreakMark mark;

// It is enough that the wait ends: throwing from a queued call would unwind through the system's frames.
void CALLBACK WakeUp(ULONG_PTR) {}

void EndWorkerWhenTold()
{
    constexpr int brokenOff = 3;
    const bool* told = Tls().workerMustEnd;
    if (told && *told)
        BreakOut(brokenOff);
}

} // namespace

void TellWorkers() { mark.workersTold = true; }

void TakeBreaksHere()
{
    mark.thread = DuplicateHandle(GetCurrentThread(), false);
    mark.threadId = GetCurrentThreadId();
}

void MarkBreak(unsigned event)
{
    unsigned seen = mark.waiting;
    while (seen < event + 1 && !mark.waiting.compare_exchange_weak(seen, event + 1)) {
    }
}

void WakeForBreak()
{
    if (mark.thread)
        QueueUserAPC(WakeUp, mark.thread.Get(), 0);
}

bool QueryBreak() { return mark.waiting != 0; }

void TakeBreak(unsigned event)
{
    unsigned taken = event + 1;
    mark.waiting.compare_exchange_strong(taken, 0);
}

void ClearBreak()
{
    unsigned seen = mark.waiting;
    while (seen != 0 && !break_event::EndsShell(seen - 1) && !mark.waiting.compare_exchange_weak(seen, 0)) {
    }
    TLS_VARIABLES& tls = Tls();
    tls.breakPending = false;
    tls.breakHappened = false;
}

void ThrowIfBroken()
{
    const unsigned seen = mark.waiting.load(std::memory_order_relaxed);
    if (seen != 0 && GetCurrentThreadId() == mark.threadId)
        BreakHandler(seen - 1);
    if (mark.workersTold.load(std::memory_order_relaxed))
        EndWorkerWhenTold();
}

void ThrowIfShellEnds()
{
    const unsigned seen = mark.waiting.load(std::memory_order_relaxed);
    if ((seen != 0 && break_event::EndsShell(seen - 1)) || (seen == 0 && mark.workersTold))
        ThrowIfBroken();
}

void SleepOrBreak(std::uint64_t milliseconds)
{
    SleepWithPoll(milliseconds, [] {
        ThrowIfBroken();
        return true;
    });
}

void HoldSignals() { Tls().signalsHeld = true; }

void EnableSignals() { Tls().signalsHeld = false; }
