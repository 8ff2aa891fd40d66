#include "engine/break.h"
#include "engine/console_entry.h"
#include "engine/state.h"
#include "platform/clock.h"
#include "platform/console.h"
#include "platform/turns.h"

void tty_yield()
{
    constexpr std::uint64_t yieldEvery = 20; // milliseconds: letting queued calls run costs a system call
    PassTurn();
    ThrowIfBroken();
    if (!HasConsole())
        return;
    TLS_VARIABLES& tls = Tls();
    const std::uint64_t now = Ticks();
    if (now < tls.nextYield)
        return;
    tls.nextYield = now + yieldEvery;
    RunQueuedCalls();
    ThrowIfBroken();
}
