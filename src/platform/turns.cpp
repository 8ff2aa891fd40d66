#include "platform/turns.h"

#include <atomic>

#include "platform/standard_handles.h"

namespace {

// Tickets are served in their order, so that nobody waits for ever.
struct TurnState {
    std::atomic<DWORD> holder{0}; // thread that has the turn; 0 before there are several
    SRWLOCK lock = SRWLOCK_INIT;
    CONDITION_VARIABLE served = CONDITION_VARIABLE_INIT;
    unsigned nextTicket = 0;
    unsigned nowServing = 0;
};

TurnState turns;

bool HaveTurn()
{
    const DWORD holder = turns.holder.load(std::memory_order_relaxed);
    return holder != 0 && holder == GetCurrentThreadId();
}

} // namespace

void BeginTurns()
{
    if (turns.holder != 0)
        return;
    turns.nextTicket = turns.nowServing + 1;
    turns.holder = GetCurrentThreadId();
}

void TakeTurn()
{
    AcquireSRWLockExclusive(&turns.lock);
    const unsigned ticket = turns.nextTicket++;
    while (turns.nowServing != ticket)
        SleepConditionVariableSRW(&turns.served, &turns.lock, INFINITE, 0);
    turns.holder = GetCurrentThreadId();
    ReleaseSRWLockExclusive(&turns.lock);
}

void GiveTurn()
{
    AcquireSRWLockExclusive(&turns.lock);
    // Nobody's, but several threads there are.
    turns.holder = ~DWORD{0};
    ++turns.nowServing;
    ReleaseSRWLockExclusive(&turns.lock);
    WakeAllConditionVariable(&turns.served);
}

void PassTurn() { const WaitingAside others; }

WaitingAside::WaitingAside() : aside(HaveTurn())
{
    if (!aside)
        return;
    for (int number = 0; number < 3; ++number)
        handles[number] = StandardHandle(number);
    GiveTurn();
}

WaitingAside::~WaitingAside()
{
    if (!aside)
        return;
    // The wait's reason of failure is still to be looked at.
    const DWORD reason = GetLastError();
    TakeTurn();
    for (int number = 0; number < 3; ++number)
        SetStandardHandle(number, handles[number]);
    SetLastError(reason);
}
