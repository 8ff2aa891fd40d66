#include "platform/user_name.h"

#include "platform/environment.h"
#include "platform/lazy_library.h"

#include <lmcons.h>

namespace {

constinit LazyFunction<decltype(GetUserNameW)> getUserName(libraries::advapi32, "GetUserNameW");

} // namespace

CString LoggedOnUser()
{
    CString name;
    DWORD size = UNLEN + 1;
    if (getUserName(reinterpret_cast<wchar_t*>(name.Edit(size)), &size) && size > 0)
        name.SetLength(size - 1); // the NUL is counted
    else
        ReadEnvironment(u"USERNAME", name);
    return name;
}
