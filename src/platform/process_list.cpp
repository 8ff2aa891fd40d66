#include "platform/process_list.h"

#include <tlhelp32.h>

#include "platform/account_names.h"
#include "platform/lazy_library.h"
#include "platform/process_memory.h"
#include "text/compare.h"

namespace {

constinit LazyFunction<decltype(OpenProcessToken)> openToken(libraries::advapi32, "OpenProcessToken");

constexpr unsigned lookRights = PROCESS_QUERY_LIMITED_INFORMATION;

std::uint64_t Join(const FILETIME& time)
{
    return std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
}

bool HasModule(unsigned process, std::u16string_view fileName)
{
    const OwnedHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPMODULE | TH32CS_SNAPMODULE32, process));
    MODULEENTRY32W entry = {};
    entry.dwSize = sizeof entry;
    if (!snapshot)
        return false;
    for (BOOL more = Module32FirstW(snapshot.Get(), &entry); more;
         more = Module32NextW(snapshot.Get(), &entry))
        if (EqualNoCase(reinterpret_cast<const char16_t*>(entry.szModule), fileName))
            return true;
    return false;
}

} // namespace

std::vector<ProcessEntry> AllProcesses()
{
    std::vector<ProcessEntry> processes;
    const OwnedHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    PROCESSENTRY32W entry = {};
    entry.dwSize = sizeof entry;
    if (!snapshot)
        return processes;
    for (BOOL more = Process32FirstW(snapshot.Get(), &entry); more;
         more = Process32NextW(snapshot.Get(), &entry))
        processes.push_back({entry.th32ProcessID, entry.th32ParentProcessID, entry.cntThreads,
                             reinterpret_cast<const char16_t*>(entry.szExeFile)});
    return processes;
}

OwnedHandle OpenProcessFor(unsigned process, unsigned rights)
{
    return OwnedHandle(OpenProcess(rights, FALSE, process));
}

bool IsProcess(unsigned process)
{
    const OwnedHandle handle = OpenProcessFor(process, lookRights | SYNCHRONIZE);
    if (!handle)
        return GetLastError() == ERROR_ACCESS_DENIED;
    // One that has ended still exists as long as somebody holds it.
    return WaitForSingleObject(handle.Get(), 0) == WAIT_TIMEOUT;
}

CString ProgramPathOf(unsigned process)
{
    const OwnedHandle handle = OpenProcessFor(process, lookRights);
    constexpr DWORD longest = 32768;
    CString name;
    DWORD length = longest;
    if (!handle ||
        !QueryFullProcessImageNameW(handle.Get(), 0, reinterpret_cast<wchar_t*>(name.Edit(longest)), &length))
        return {};
    return name.SetLength(length), name;
}

CString CommandLineOf(unsigned process)
{
    const OwnedHandle handle = OpenProcessFor(process, lookRights | PROCESS_VM_READ);
    CString line;
    if (handle)
        ReadProcessCommandLine(handle.Get(), line);
    return line;
}

CString UserOf(unsigned process)
{
    const OwnedHandle handle = OpenProcessFor(process, lookRights);
    HANDLE opened = nullptr;
    if (!handle || !openToken(handle.Get(), TOKEN_QUERY, &opened))
        return {};
    const OwnedHandle token(opened);
    return UserOfToken(token.Get());
}

std::optional<ProcessTimes> ReadProcessTimes(unsigned process)
{
    const OwnedHandle handle = OpenProcessFor(process, lookRights);
    FILETIME created, ended, kernel, user;
    if (!handle || !GetProcessTimes(handle.Get(), &created, &ended, &kernel, &user))
        return std::nullopt;
    return ProcessTimes{Join(created), Join(ended), Join(kernel), Join(user)};
}

std::optional<IO_COUNTERS> ReadProcessCounters(unsigned process)
{
    const OwnedHandle handle = OpenProcessFor(process, lookRights);
    IO_COUNTERS counters = {};
    if (!handle || !GetProcessIoCounters(handle.Get(), &counters))
        return std::nullopt;
    return counters;
}

unsigned PriorityClassOf(unsigned process)
{
    const OwnedHandle handle = OpenProcessFor(process, lookRights);
    return handle ? GetPriorityClass(handle.Get()) : 0;
}

std::optional<unsigned> HandleCountOf(unsigned process)
{
    const OwnedHandle handle = OpenProcessFor(process, lookRights);
    DWORD count = 0;
    if (!handle || !GetProcessHandleCount(handle.Get(), &count))
        return std::nullopt;
    return count;
}

unsigned CountProcessesWithModule(std::u16string_view fileName)
{
    unsigned count = 0;
    for (const ProcessEntry& entry : AllProcesses())
        count += HasModule(entry.process, fileName) ? 1 : 0;
    return count;
}
