#include "platform/power_events.h"

#include <atomic>

#include <windows.h>

#include "platform/lazy_library.h"

namespace {

// The system calls from a thread of its own.
std::atomic<unsigned> suspends{0};
std::atomic<unsigned> resumes{0};
HPOWERNOTIFY listening = nullptr; // of the thread that runs batch files

constexpr DWORD asCallback = 2; // DEVICE_NOTIFY_CALLBACK

ULONG CALLBACK NotePowerChange(PVOID, ULONG type, PVOID)
{
    if (type == PBT_APMSUSPEND)
        ++suspends;
    else if (type == PBT_APMRESUMEAUTOMATIC)
        ++resumes;
    return 0;
}

struct Subscription {
    ULONG(CALLBACK* callback)(PVOID, ULONG, PVOID);
    PVOID context;
};

LazyLibrary powerLibrary(L"powrprof.dll");
LazyFunction<DWORD WINAPI(DWORD, Subscription*, HPOWERNOTIFY*)>
    subscribe(powerLibrary, "PowerRegisterSuspendResumeNotification", ERROR_PROC_NOT_FOUND);
LazyFunction<DWORD WINAPI(HPOWERNOTIFY)> unsubscribe(powerLibrary,
                                                     "PowerUnregisterSuspendResumeNotification");

} // namespace

bool WatchPower(bool on)
{
    if (on == (listening != nullptr))
        return true;
    if (!on) {
        unsubscribe(listening);
        listening = nullptr;
        return true;
    }
    static Subscription subscription = {NotePowerChange, nullptr};
    return subscribe(asCallback, &subscription, &listening) == ERROR_SUCCESS;
}

PowerChanges TakePowerChanges() { return {suspends.exchange(0) != 0, resumes.exchange(0) != 0}; }
