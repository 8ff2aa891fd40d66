#include "platform/lazy_library.h"

namespace libraries {
constinit LazyLibrary user32(L"user32.dll");
constinit LazyLibrary shell32(L"shell32.dll");
constinit LazyLibrary advapi32(L"advapi32.dll");
constinit LazyLibrary shlwapi(L"shlwapi.dll");
constinit LazyLibrary ole32(L"ole32.dll");
constinit LazyLibrary propsys(L"propsys.dll");
constinit LazyLibrary version(L"version.dll");
constinit LazyLibrary mpr(L"mpr.dll");
constinit LazyLibrary rstrtmgr(L"rstrtmgr.dll");
} // namespace libraries

FARPROC LazyLibrary::Find(const char* function) noexcept
{
    HMODULE loaded = module.load(std::memory_order_acquire);
    if (!loaded) {
        // Two threads may both load it: that only counts the library twice.
        loaded = LoadLibraryExW(name, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
        if (!loaded)
            return nullptr;
        module.store(loaded, std::memory_order_release);
    }
    return GetProcAddress(loaded, function);
}
