// Owners of system handles: move-only, closed when they go out of scope. Nothing in the project closes a
// handle by hand.
#pragma once

#include <utility>

#include <windows.h>

class OwnedHandle {
public:
    OwnedHandle() noexcept = default;
    explicit OwnedHandle(HANDLE taken) noexcept : handle(taken == INVALID_HANDLE_VALUE ? nullptr : taken) {}
    OwnedHandle(OwnedHandle&& other) noexcept : handle(std::exchange(other.handle, nullptr)) {}
    OwnedHandle& operator=(OwnedHandle&& other) noexcept
    {
        if (this != &other)
            Reset(std::exchange(other.handle, nullptr));
        return *this;
    }
    ~OwnedHandle() { Reset(); }

    HANDLE Get() const noexcept { return handle; }
    explicit operator bool() const noexcept { return handle != nullptr; }
    HANDLE Release() noexcept { return std::exchange(handle, nullptr); }
    void Reset(HANDLE taken = nullptr) noexcept
    {
        if (handle)
            CloseHandle(handle);
        handle = taken;
    }

private:
    HANDLE handle = nullptr;
};

// The end of a FindFirstFile walk.
class OwnedFindHandle {
public:
    OwnedFindHandle() noexcept = default;
    explicit OwnedFindHandle(HANDLE taken) noexcept : handle(taken) {}
    OwnedFindHandle(OwnedFindHandle&& other) noexcept
        : handle(std::exchange(other.handle, INVALID_HANDLE_VALUE))
    {}
    OwnedFindHandle& operator=(OwnedFindHandle&& other) noexcept
    {
        std::swap(handle, other.handle);
        return *this;
    }
    ~OwnedFindHandle()
    {
        if (handle != INVALID_HANDLE_VALUE)
            FindClose(handle);
    }

    HANDLE Get() const noexcept { return handle; }
    explicit operator bool() const noexcept { return handle != INVALID_HANDLE_VALUE; }

private:
    HANDLE handle = INVALID_HANDLE_VALUE;
};
