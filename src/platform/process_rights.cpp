#include "platform/process_rights.h"

#include <windows.h>

#include "platform/handle.h"
#include "platform/lazy_library.h"

namespace {

constinit LazyFunction<decltype(OpenProcessToken)> openToken(libraries::advapi32, "OpenProcessToken");
constinit LazyFunction<decltype(GetTokenInformation)> tokenInformation(libraries::advapi32,
                                                                       "GetTokenInformation");

} // namespace

bool IsElevated()
{
    HANDLE opened = nullptr;
    openToken(GetCurrentProcess(), TOKEN_QUERY, &opened);
    const OwnedHandle token(opened);
    TOKEN_ELEVATION elevation = {};
    DWORD size = sizeof elevation;
    const bool known = token && tokenInformation(token.Get(), TokenElevation, &elevation, size, &size);
    return known && elevation.TokenIsElevated != 0;
}
