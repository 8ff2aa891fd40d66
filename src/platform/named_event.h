// A signal that processes share by name: set once, it stays set, and everybody who waits goes on.
#pragma once

#include <string_view>

#include "platform/handle.h"

class NamedEvent {
public:
    // Opens the event of that name or creates it, not set. An empty result leaves the reason in the thread's
    // last error.
    static NamedEvent OpenOrCreate(std::u16string_view name);
    // Opens an existing event only.
    static NamedEvent Open(std::u16string_view name);

    explicit operator bool() const noexcept { return static_cast<bool>(event); }
    bool Created() const noexcept { return created; } // by this call, not by another process
    void Set() const { SetEvent(event.Get()); }
    void Wait() const { WaitForSingleObject(event.Get(), INFINITE); } // nothing else happens meanwhile

private:
    NamedEvent(OwnedHandle taken, bool isNew) noexcept : event(std::move(taken)), created(isNew) {}

    OwnedHandle event;
    bool created;
};
