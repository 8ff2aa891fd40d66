#include "console/history_lock.h"

#include "engine/break.h"
#include "engine/state.h"
#include "expand/list_blocks.h"

namespace {

NamedLock& HistoryLock()
{
    NamedLock& lock = Lists().historyLock;
    if (!lock)
        lock = NamedLock(u"MVHistorySemaphore");
    return lock;
}

} // namespace

HeldSignals::HeldSignals() : before(Tls().signalsHeld) { HoldSignals(); }

HeldSignals::~HeldSignals() { Tls().signalsHeld = before; }

HistoryGuard::HistoryGuard() : guard(HistoryLock().Take(ThrowIfShellEnds)) {}
