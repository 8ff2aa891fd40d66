#include "platform/system_version.h"

#include <windows.h>

#include "platform/lazy_library.h"
#include "platform/registry.h"

namespace {

// Numbers without the lies that programs without a manifest are told.
void ReadKernelVersion(SystemVersion& version)
{
    using RtlGetVersionFunction = LONG WINAPI(OSVERSIONINFOW*);
    static LazyLibrary ntdll(L"ntdll.dll");
    static LazyFunction<RtlGetVersionFunction> getVersion(ntdll, "RtlGetVersion", -1);
    OSVERSIONINFOEXW info = {};
    info.dwOSVersionInfoSize = sizeof info;
    if (getVersion(reinterpret_cast<OSVERSIONINFOW*>(&info)) != 0)
        return;
    version.major = info.dwMajorVersion;
    version.minor = info.dwMinorVersion;
    version.build = info.dwBuildNumber;
    version.server = info.wProductType != VER_NT_WORKSTATION;
}

} // namespace

SystemVersion ReadSystemVersion()
{
    SystemVersion version;
    ReadKernelVersion(version);
    const RegistryKey key(RegistryRoot::LocalMachine, u"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion");
    version.revision = key.Number(u"UBR").value_or(0);
    version.release = key.Text(u"DisplayVersion").value_or(CString());
    return version;
}
