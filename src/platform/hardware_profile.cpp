#include "platform/hardware_profile.h"

#include <windows.h>

#include "platform/lazy_library.h"

namespace {

constinit LazyFunction<decltype(GetCurrentHwProfileW)> currentProfile(libraries::advapi32,
                                                                      "GetCurrentHwProfileW");

} // namespace

CString HardwareProfileName()
{
    HW_PROFILE_INFOW profile = {};
    if (!currentProfile(&profile))
        return {};
    return reinterpret_cast<const char16_t*>(profile.szHwProfileName);
}
