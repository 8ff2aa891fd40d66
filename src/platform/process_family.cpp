#include "platform/process_family.h"

#include <cstddef>
#include <cstdint>

#include "platform/handle.h"
#include "platform/lazy_library.h"

namespace {

// The system's basic record of a process. A snapshot of all processes would tell the parent too, at the cost
// of walking through every one of them.
struct BasicInformation {
    std::intptr_t exitStatus;
    void* environmentBlock;
    std::uintptr_t affinity;
    std::intptr_t basePriority;
    std::uintptr_t process;
    std::uintptr_t parent;
};
constexpr int basicInformation = 0;

LazyLibrary systemLayer(L"ntdll.dll");
LazyFunction<LONG WINAPI(HANDLE, int, void*, ULONG, ULONG*)> queryProcess(systemLayer,
                                                                          "NtQueryInformationProcess", -1);

} // namespace

unsigned ParentProcess()
{
    BasicInformation information{};
    if (queryProcess(GetCurrentProcess(), basicInformation, &information, sizeof information, nullptr) < 0)
        return 0;
    return static_cast<unsigned>(information.parent);
}

CString ProgramOfProcess(unsigned process)
{
    const OwnedHandle handle(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, process));
    if (!handle)
        return {};
    constexpr DWORD longest = 32768;
    CString name;
    DWORD length = longest;
    if (!QueryFullProcessImageNameW(handle.Get(), 0, reinterpret_cast<wchar_t*>(name.Edit(longest)), &length))
        return {};
    name.SetLength(length);
    const std::size_t slash = name.view().rfind(u'\\');
    return slash == CString::npos ? name : name.Substr(slash + 1);
}

std::vector<unsigned> ConsoleProcesses()
{
    std::vector<DWORD> found(16);
    for (;;) {
        const DWORD count = GetConsoleProcessList(found.data(), static_cast<DWORD>(found.size()));
        if (count <= found.size()) {
            found.resize(count);
            return {found.begin(), found.end()};
        }
        found.resize(count);
    }
}
