#include "platform/service_facts.h"

#include <cstddef>
#include <vector>

#include <windows.h>

#include <winsvc.h>

#include "platform/lazy_library.h"

namespace {

constinit LazyFunction<decltype(OpenSCManagerW)> openManager(libraries::advapi32, "OpenSCManagerW");
constinit LazyFunction<decltype(OpenServiceW)> openService(libraries::advapi32, "OpenServiceW");
constinit LazyFunction<decltype(CloseServiceHandle)> closeHandle(libraries::advapi32, "CloseServiceHandle");
constinit LazyFunction<decltype(GetServiceKeyNameW)> keyName(libraries::advapi32, "GetServiceKeyNameW");
constinit LazyFunction<decltype(QueryServiceStatusEx)> queryStatus(libraries::advapi32,
                                                                   "QueryServiceStatusEx");
constinit LazyFunction<decltype(QueryServiceConfigW)> queryConfig(libraries::advapi32, "QueryServiceConfigW");

class ServiceHandle {
public:
    explicit ServiceHandle(SC_HANDLE taken) : handle(taken) {}
    ServiceHandle(const ServiceHandle&) = delete;
    ServiceHandle& operator=(const ServiceHandle&) = delete;
    ~ServiceHandle()
    {
        if (handle)
            closeHandle(handle);
    }
    const SC_HANDLE handle;
};

// The name behind a shown name; the name itself when it is none.
CString KeyName(SC_HANDLE manager, const CString& name)
{
    wchar_t key[257];
    DWORD length = 257;
    if (!keyName(manager, name.w(), key, &length))
        return name;
    return reinterpret_cast<const char16_t*>(key);
}

CString TextOf(const wchar_t* text) { return reinterpret_cast<const char16_t*>(text); }

} // namespace

unsigned ReadServiceState(std::u16string_view name, ServiceState& state)
{
    const ServiceHandle manager(openManager(nullptr, nullptr, SC_MANAGER_CONNECT));
    if (!manager.handle)
        return GetLastError();
    const CString key = KeyName(manager.handle, CString(name));
    const ServiceHandle service(
        openService(manager.handle, key.w(), SERVICE_QUERY_STATUS | SERVICE_QUERY_CONFIG));
    if (!service.handle)
        return GetLastError();
    SERVICE_STATUS_PROCESS status = {};
    DWORD bytes = 0;
    if (!queryStatus(service.handle, SC_STATUS_PROCESS_INFO, reinterpret_cast<BYTE*>(&status), sizeof status,
                     &bytes))
        return GetLastError();
    state.state = status.dwCurrentState;
    state.process = status.dwProcessId;
    std::vector<std::byte> memory(8192); // the system's limit for this record
    auto* config = reinterpret_cast<QUERY_SERVICE_CONFIGW*>(memory.data());
    if (!queryConfig(service.handle, config, static_cast<DWORD>(memory.size()), &bytes))
        return GetLastError();
    state.start = config->dwStartType;
    state.displayName = TextOf(config->lpDisplayName);
    state.command = TextOf(config->lpBinaryPathName);
    state.account = TextOf(config->lpServiceStartName);
    return 0;
}
