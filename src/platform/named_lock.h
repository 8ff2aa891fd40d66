// A lock that processes share: a named semaphore of count one that survives a holder who died.
//
// Beside the semaphore stands a small section that says which process holds it. Whoever waits looks every
// `checkInterval` whether that process still lives and takes its place when it does not. What the lock
// guards may then be half changed: the room that owns it keeps a record that lets it be repaired.
// The lock is not recursive. Taking and releasing costs a trip to the kernel: keep it off hot paths.
#pragma once

#include <atomic>
#include <cstdint>
#include <string_view>

#include "platform/shared_section.h"

class NamedLock {
public:
    static constexpr unsigned checkInterval = 150; // milliseconds

    // Holds the lock until the end of the scope, on every way out of it.
    class Guard {
    public:
        Guard(Guard&& other) noexcept : lock(std::exchange(other.lock, nullptr)) {}
        Guard& operator=(Guard&&) = delete;
        ~Guard();

    private:
        friend class NamedLock;
        explicit Guard(NamedLock* held) noexcept : lock(held) {}
        NamedLock* lock;
    };

    // Without a name there is no lock, and taking it does nothing; so too when the system refuses one.
    NamedLock() noexcept = default;
    explicit NamedLock(std::u16string_view name);
    explicit operator bool() const noexcept { return static_cast<bool>(semaphore); }

    // Waits for the lock. `poll`, if given, is called at every check and may throw to give up waiting.
    Guard Take(void (*poll)() = nullptr);

private:
    using HolderWord = std::atomic<std::uint64_t>;

    HolderWord* Holder() const { return static_cast<HolderWord*>(record.Data()); }
    bool Register();
    bool ReplaceDeadHolder(int checksWithoutHolder);
    void Release() noexcept;

    OwnedHandle semaphore;
    SharedSection record;
    std::uint64_t self = 0;
};
