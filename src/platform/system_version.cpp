#include "platform/system_version.h"

#include <windows.h>

namespace {

constexpr wchar_t versionKey[] = L"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion";

// Numbers without the lies that programs without a manifest are told.
void ReadKernelVersion(SystemVersion& version)
{
    using RtlGetVersionFunction = LONG(WINAPI*)(OSVERSIONINFOW*);
    OSVERSIONINFOEXW info = {};
    info.dwOSVersionInfoSize = sizeof info;
    const auto address = GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlGetVersion");
    const auto getVersion = reinterpret_cast<RtlGetVersionFunction>(reinterpret_cast<void*>(address));
    if (!getVersion || getVersion(reinterpret_cast<OSVERSIONINFOW*>(&info)) != 0)
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
    DWORD revision = 0;
    DWORD size = sizeof revision;
    if (RegGetValueW(HKEY_LOCAL_MACHINE, versionKey, L"UBR", RRF_RT_REG_DWORD, nullptr, &revision, &size) ==
        ERROR_SUCCESS)
        version.revision = revision;
    wchar_t release[64];
    size = sizeof release;
    if (RegGetValueW(HKEY_LOCAL_MACHINE, versionKey, L"DisplayVersion", RRF_RT_REG_SZ, nullptr, release,
                     &size) == ERROR_SUCCESS)
        version.release = reinterpret_cast<const char16_t*>(release);
    return version;
}
