// The lock "MVHistorySemaphore" around everything that shells share of their histories. While it is held
// breaks wait.
#pragma once

#include "platform/named_lock.h"

class HeldSignals {
public:
    HeldSignals();
    ~HeldSignals();
    HeldSignals(const HeldSignals&) = delete;
    HeldSignals& operator=(const HeldSignals&) = delete;

private:
    bool before;
};

class HistoryGuard {
public:
    HistoryGuard();

private:
    HeldSignals held;
    NamedLock::Guard guard;
};
