#include "platform/process_memory.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "platform/environment.h"
#include "platform/handle.h"
#include "platform/lazy_library.h"

namespace {

LazyLibrary systemLayer(L"ntdll.dll");
LazyFunction<LONG WINAPI(HANDLE, int, void*, ULONG, ULONG*)> queryProcess(systemLayer,
                                                                          "NtQueryInformationProcess", -1);
LazyFunction<LONG WINAPI(HANDLE, void*, void*, void*, void*)> queueApc(systemLayer, "NtQueueApcThread", -1);

constexpr int basicInformation = 0;
constexpr int wow64Information = 26;

// Where a process keeps its start parameters. The layouts are those of every Windows since 6.0.
struct Layout {
    std::size_t pointer;     // bytes of an address
    std::size_t parameters;  // in the process's block
    std::size_t commandLine; // in the parameters: a counted text
    std::size_t environment; // in the parameters
};
constexpr Layout wide = {8, 0x20, 0x70, 0x80};
constexpr Layout narrow = {4, 0x10, 0x40, 0x48};

struct BasicInformation {
    std::intptr_t exitStatus;
    std::uint64_t block;
    std::uintptr_t affinity;
    std::intptr_t basePriority;
    std::uintptr_t process;
    std::uintptr_t parent;
};

class ProcessReader {
public:
    explicit ProcessReader(HANDLE which) : process(which)
    {
        BasicInformation basic{};
        std::uintptr_t narrowBlock = 0;
        std::uint64_t block = 0;
        if (queryProcess(process, wow64Information, &narrowBlock, sizeof narrowBlock, nullptr) >= 0 &&
            narrowBlock != 0) {
            layout = narrow;
            block = narrowBlock;
        } else if (queryProcess(process, basicInformation, &basic, sizeof basic, nullptr) >= 0) {
            block = basic.block;
        }
        if (block != 0)
            parameters = Address(block + layout.parameters);
        if (parameters == 0)
            SetLastError(ERROR_ACCESS_DENIED);
    }

    explicit operator bool() const { return parameters != 0; }
    bool IsNarrow() const { return layout.pointer == narrow.pointer; }

    std::uint64_t Address(std::uint64_t at) const
    {
        std::uint64_t value = 0;
        return Read(at, &value, layout.pointer) ? value : 0;
    }

    bool Read(std::uint64_t at, void* to, std::size_t bytes) const
    {
        SIZE_T done = 0;
        return ReadProcessMemory(process, reinterpret_cast<const void*>(at), to, bytes, &done) &&
               done == bytes;
    }

    bool CountedText(std::uint64_t at, CString& text) const
    {
        std::uint16_t bytes = 0;
        if (!Read(at, &bytes, sizeof bytes))
            return false;
        const std::uint64_t units = Address(at + layout.pointer);
        const std::size_t length = bytes / sizeof(char16_t);
        if (!Read(units, text.Edit(length), length * sizeof(char16_t)))
            return false;
        text.SetLength(length);
        return true;
    }

    bool CommandLine(CString& text) const { return CountedText(parameters + layout.commandLine, text); }
    std::uint64_t Environment() const { return Address(parameters + layout.environment); }

private:
    HANDLE process;
    Layout layout = wide;
    std::uint64_t parameters = 0;
};

// The block ends with an empty entry; it is read page by page, since nothing tells its length.
bool ReadBlock(const ProcessReader& reader, std::uint64_t at, CString& block)
{
    constexpr std::size_t page = 4096;
    constexpr std::size_t longest = std::size_t{4} << 20; // units
    constexpr std::u16string_view end(u"\0\0", 2);
    char16_t units[page / sizeof(char16_t)];
    while (block.size() < longest) {
        const std::size_t bytes = page - at % page;
        if (!reader.Read(at, units, bytes))
            return false;
        const std::size_t before = block.size();
        block.Append(std::u16string_view(units, bytes / sizeof(char16_t)));
        const std::size_t found = block.Find(end, before == 0 ? 0 : before - 1);
        if (found != CString::npos || block.front() == u'\0') {
            block.Truncate(block.front() == u'\0' ? 0 : found + 1);
            return true;
        }
        at += bytes;
    }
    SetLastError(ERROR_BAD_ENVIRONMENT);
    return false;
}

// Memory in the other process, given back unless a thread of it may still be reading.
class RemoteMemory {
public:
    RemoteMemory(HANDLE which, std::size_t bytes)
        : process(which),
          memory(VirtualAllocEx(which, nullptr, bytes, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE))
    {}
    RemoteMemory(const RemoteMemory&) = delete;
    RemoteMemory& operator=(const RemoteMemory&) = delete;
    ~RemoteMemory()
    {
        if (memory)
            VirtualFreeEx(process, memory, 0, MEM_RELEASE);
    }
    char16_t* Units() const { return static_cast<char16_t*>(memory); }
    void Leave() { memory = nullptr; }

private:
    HANDLE process;
    void* memory;
};

bool IsOurWordSize(HANDLE process)
{
    const ProcessReader reader(process);
    return reader && reader.IsNarrow() == (sizeof(void*) == narrow.pointer);
}

std::optional<CString> ValueIn(HANDLE process, std::u16string_view name)
{
    std::vector<CString> entries;
    ReadProcessEnvironment(process, entries);
    for (const CString& entry : entries) {
        const std::size_t end = EnvironmentNameEnd(entry);
        if (end == name.size() && CompareStringOrdinal(entry.w(), static_cast<int>(end), CString(name).w(),
                                                       static_cast<int>(name.size()), TRUE) == CSTR_EQUAL)
            return entry.Substr(end + 1);
    }
    return std::nullopt;
}

} // namespace

bool ReadProcessCommandLine(HANDLE process, CString& line)
{
    const ProcessReader reader(process);
    return reader && reader.CommandLine(line);
}

bool ReadProcessEnvironment(HANDLE process, std::vector<CString>& entries)
{
    const ProcessReader reader(process);
    CString block;
    if (!reader || !ReadBlock(reader, reader.Environment(), block))
        return false;
    std::u16string_view rest = block;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find(u'\0'), rest.size());
        entries.push_back(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return true;
}

// The thread is born asleep with the call queued for it, which the system makes before the thread's own
// function; that one ends the thread. Both functions stand at the same place in every process.
bool SetProcessVariable(HANDLE process, std::u16string_view name, const char16_t* value)
{
    constexpr DWORD patience = 5000; // milliseconds
    if (!IsOurWordSize(process)) {
        if (GetLastError() == ERROR_SUCCESS)
            SetLastError(ERROR_EXE_MACHINE_TYPE_MISMATCH);
        return false;
    }
    CString texts(name);
    texts.Append(u'\0');
    const std::size_t valueAt = texts.size();
    texts.Append(value ? std::u16string_view(value) : std::u16string_view()).Append(u'\0');
    const std::size_t bytes = texts.size() * sizeof(char16_t);
    RemoteMemory remote(process, bytes);
    if (!remote.Units() || !WriteProcessMemory(process, remote.Units(), texts.c_str(), bytes, nullptr))
        return false;
    const HMODULE kernel = GetModuleHandleW(L"kernel32.dll");
    const auto exitThread = reinterpret_cast<LPTHREAD_START_ROUTINE>(
        reinterpret_cast<void*>(GetProcAddress(kernel, "ExitThread")));
    void* setVariable = reinterpret_cast<void*>(GetProcAddress(kernel, "SetEnvironmentVariableW"));
    const OwnedHandle thread(
        CreateRemoteThread(process, nullptr, 0, exitThread, nullptr, CREATE_SUSPENDED, nullptr));
    if (!thread)
        return false;
    const bool queued = queueApc(thread.Get(), setVariable, remote.Units(),
                                 value ? remote.Units() + valueAt : nullptr, nullptr) >= 0;
    ResumeThread(thread.Get());
    if (WaitForSingleObject(thread.Get(), patience) != WAIT_OBJECT_0) {
        remote.Leave();
        SetLastError(ERROR_TIMEOUT);
        return false;
    }
    const std::optional<CString> now = ValueIn(process, name);
    const bool done = queued && (value ? now && *now == value : !now);
    if (!done)
        SetLastError(ERROR_ACCESS_DENIED);
    return done;
}
