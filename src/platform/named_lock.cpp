#include "platform/named_lock.h"

#include "text/cstring.h"

namespace {

// A holder is written as its process id in the low half and, as ids are used again, a mark of the time at
// which the process started in the high half. 0: nobody holds the lock.
constexpr int startTimeShift = 16; // from units of 100 ns to about 6.5 ms

// Between getting the semaphore and writing its name a process is nameless for some instructions. One that
// stays nameless for this many checks died there.
constexpr int namelessChecks = 4;

static_assert(std::atomic<std::uint64_t>::is_always_lock_free, "the word is shared between processes");

std::uint64_t HolderOf(HANDLE process, DWORD id)
{
    FILETIME started{}, ended, kernel, user;
    GetProcessTimes(process, &started, &ended, &kernel, &user);
    const std::uint64_t time = std::uint64_t{started.dwHighDateTime} << 32 | started.dwLowDateTime;
    return (time >> startTimeShift) << 32 | id;
}

bool Lives(std::uint64_t holder)
{
    const DWORD id = static_cast<DWORD>(holder);
    const OwnedHandle process(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION | SYNCHRONIZE, FALSE, id));
    if (!process) // one that we may not open is alive
        return GetLastError() != ERROR_INVALID_PARAMETER;
    return WaitForSingleObject(process.Get(), 0) == WAIT_TIMEOUT && HolderOf(process.Get(), id) == holder;
}

} // namespace

NamedLock::NamedLock(std::u16string_view name)
    : semaphore(CreateSemaphoreW(nullptr, 1, 1, CString(name).w())),
      record(SharedSection::OpenOrCreate(CString(name) + u"Holder", sizeof(HolderWord))),
      self(HolderOf(GetCurrentProcess(), GetCurrentProcessId()))
{}

NamedLock::Guard NamedLock::Take(void (*poll)())
{
    if (!semaphore)
        return Guard(nullptr);
    for (int namelessFor = 0;;) {
        const DWORD waited = WaitForSingleObject(semaphore.Get(), checkInterval);
        if (waited == WAIT_OBJECT_0 && Register())
            return Guard(this);
        if (waited == WAIT_FAILED)
            return Guard(nullptr);
        namelessFor = record && Holder()->load() == 0 ? namelessFor + 1 : 0;
        if (waited == WAIT_TIMEOUT && ReplaceDeadHolder(namelessFor))
            return Guard(this);
        if (poll)
            poll();
    }
}

// Writes our name after the semaphore let us in. False when somebody took us for dead in the meantime and
// holds the lock in our place.
bool NamedLock::Register()
{
    std::uint64_t nobody = 0;
    return !record || Holder()->compare_exchange_strong(nobody, self);
}

bool NamedLock::ReplaceDeadHolder(int checksWithoutHolder)
{
    if (!record)
        return false;
    std::uint64_t holder = Holder()->load();
    const bool dead = holder == 0 ? checksWithoutHolder >= namelessChecks : !Lives(holder);
    return dead && Holder()->compare_exchange_strong(holder, self);
}

void NamedLock::Release() noexcept
{
    if (record)
        Holder()->store(0);
    ReleaseSemaphore(semaphore.Get(), 1, nullptr);
}

NamedLock::Guard::~Guard()
{
    if (lock)
        lock->Release();
}
