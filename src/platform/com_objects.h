// The system's component objects: making them, and an owner of a reference to one.
#pragma once

#include <utility>

#include <windows.h>

#include <objbase.h>

template <typename Interface> class ComPointer {
public:
    ComPointer() noexcept = default;
    ComPointer(const ComPointer&) = delete;
    ComPointer& operator=(const ComPointer&) = delete;
    ComPointer(ComPointer&& other) noexcept : object(std::exchange(other.object, nullptr)) {}
    ~ComPointer() { Reset(); }

    explicit operator bool() const noexcept { return object != nullptr; }
    Interface* operator->() const noexcept { return object; }
    Interface* Get() const noexcept { return object; }
    // For functions that hand out a reference; an old one is let go of.
    Interface** Receive() noexcept
    {
        Reset();
        return &object;
    }
    void Reset() noexcept
    {
        if (Interface* old = std::exchange(object, nullptr))
            old->Release();
    }

private:
    Interface* object = nullptr;
};

// Starts COM when nobody has. False when the class does not exist here or the object has not the interface.
bool CreateComObject(const GUID& classId, const GUID& interfaceId, void** object) noexcept;
// Lets go of what a PROPVARIANT holds, and of memory that a component handed out.
void ClearComValue(PROPVARIANT& value) noexcept;
void FreeComMemory(void* memory) noexcept;
