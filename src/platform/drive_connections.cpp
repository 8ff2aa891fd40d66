#include "platform/drive_connections.h"

#include <windows.h>

#include <winnetwk.h>

#include "platform/lazy_library.h"
#include "text/cstring.h"

namespace {

constinit LazyFunction<decltype(WNetAddConnection2W)> addConnection(libraries::mpr, "WNetAddConnection2W",
                                                                    ERROR_PROC_NOT_FOUND);
constinit LazyFunction<decltype(WNetCancelConnection2W)>
    cancelConnection(libraries::mpr, "WNetCancelConnection2W", ERROR_PROC_NOT_FOUND);

CString DriveName(char16_t letter)
{
    CString name(1, letter);
    name.Append(u':');
    return name;
}

} // namespace

unsigned ConnectFreeDrive(std::u16string_view share, char16_t& letter)
{
    const DWORD taken = GetLogicalDrives();
    CString remote(share);
    for (letter = u'Z'; letter >= u'A'; --letter) {
        if ((taken >> (letter - u'A') & 1) != 0)
            continue;
        CString local = DriveName(letter);
        NETRESOURCEW resource = {};
        resource.dwType = RESOURCETYPE_DISK;
        resource.lpLocalName = const_cast<wchar_t*>(local.w());
        resource.lpRemoteName = const_cast<wchar_t*>(remote.w());
        const DWORD code = addConnection(&resource, nullptr, nullptr, 0);
        // Letters may be remembered for connections that do not stand now.
        if (code != ERROR_ALREADY_ASSIGNED && code != ERROR_DEVICE_ALREADY_REMEMBERED)
            return code;
    }
    return ERROR_NO_MORE_DEVICES;
}

unsigned DisconnectDrive(char16_t letter) { return cancelConnection(DriveName(letter).w(), 0, TRUE); }
