#include "platform/com.h"

#include <objbase.h>

#include "platform/lazy_library.h"

namespace {

LazyFunction<decltype(CoInitializeEx)> initialize(libraries::ole32, "CoInitializeEx", E_NOTIMPL);
LazyFunction<decltype(CoInitializeSecurity)> initializeSecurity(libraries::ole32, "CoInitializeSecurity",
                                                                E_NOTIMPL);
LazyFunction<decltype(CoUninitialize)> uninitialize(libraries::ole32, "CoUninitialize");

thread_local bool started = false;

} // namespace

bool StartCom()
{
    if (started)
        return true;
    started = SUCCEEDED(initialize(nullptr, COINIT_APARTMENTTHREADED));
    // Refused when somebody in the process, such as a plug-in, was first; theirs then holds.
    if (started)
        initializeSecurity(nullptr, -1, nullptr, nullptr, RPC_C_AUTHN_LEVEL_DEFAULT,
                           RPC_C_IMP_LEVEL_IMPERSONATE, nullptr, EOAC_NONE, nullptr);
    return started;
}

void EndCom()
{
    if (started)
        uninitialize();
    started = false;
}
