// Private memory that grows without moving: address space is reserved once and filled with pages on demand.
// Readers on other threads may therefore keep reading while it grows. New memory is zero.
#pragma once

#include <cstddef>

class GrowingMemory {
public:
    GrowingMemory() noexcept = default;
    // Reserves room for `limit` bytes and makes the first `bytes` usable. An empty result leaves the reason
    // in the thread's last error.
    GrowingMemory(std::size_t bytes, std::size_t limit);
    GrowingMemory(GrowingMemory&& other) noexcept { Swap(other); }
    GrowingMemory& operator=(GrowingMemory&& other) noexcept
    {
        Swap(other);
        return *this;
    }
    ~GrowingMemory();

    explicit operator bool() const noexcept { return memory != nullptr; }
    void* Data() const noexcept { return memory; }
    std::size_t Size() const noexcept { return size; } // usable bytes
    bool GrowTo(std::size_t bytes);                    // false: nothing has changed

private:
    void Swap(GrowingMemory& other) noexcept;

    void* memory = nullptr;
    std::size_t size = 0;
    std::size_t limit = 0;
};
