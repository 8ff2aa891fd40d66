#include "platform/growing_memory.h"

#include <utility>

#include <windows.h>

GrowingMemory::GrowingMemory(std::size_t bytes, std::size_t most) : limit(most)
{
    memory = VirtualAlloc(nullptr, limit, MEM_RESERVE, PAGE_READWRITE);
    if (memory && !GrowTo(bytes)) {
        const DWORD reason = GetLastError();
        VirtualFree(std::exchange(memory, nullptr), 0, MEM_RELEASE);
        SetLastError(reason);
    }
}

GrowingMemory::~GrowingMemory()
{
    if (memory)
        VirtualFree(memory, 0, MEM_RELEASE);
}

void GrowingMemory::Swap(GrowingMemory& other) noexcept
{
    std::swap(memory, other.memory);
    std::swap(size, other.size);
    std::swap(limit, other.limit);
}

bool GrowingMemory::GrowTo(std::size_t bytes)
{
    if (bytes <= size)
        return true;
    if (bytes > limit) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return false;
    }
    if (!VirtualAlloc(memory, bytes, MEM_COMMIT, PAGE_READWRITE))
        return false;
    size = bytes;
    return true;
}
