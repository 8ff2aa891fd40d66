#include "core/threads.h"

#include <windows.h>

#include "engine/break.h"
#include "engine/command_entry.h"
#include "engine/results.h"
#include "engine/state.h"
#include "platform/clock.h"
#include "platform/standard_handles.h"
#include "platform/turns.h"

namespace {

constexpr int brokenOff = 3;
constexpr std::uint64_t timeToEnd = 2000; // milliseconds

int RunCommand(CommandThread& thread)
{
    TLS_VARIABLES& tls = Tls();
    tls.workerMustEnd = &thread.mustEnd;
    try {
        const int code = Command_S(thread.command, 0);
        return EndsLine(code) ? int{tls.errorLevel} : code;
    } catch (const Break& broken) {
        return broken.code;
    } catch (...) {
        return result::error;
    }
}

DWORD WINAPI RunThread(void* parameter)
{
    const std::unique_ptr<std::shared_ptr<CommandThread>> mine(
        static_cast<std::shared_ptr<CommandThread>*>(parameter));
    CommandThread& thread = **mine;
    TakeTurn();
    for (int number = 0; number < 3; ++number)
        SetStandardHandle(number, thread.standard[number].Get());
    thread.code = RunCommand(thread);
    thread.ended = true;
    for (OwnedHandle& handle : thread.standard)
        handle = OwnedHandle();
    GiveTurn();
    return 0;
}

bool AnyRuns()
{
    for (const auto& thread : Threads().threads)
        if (!thread->ended)
            return true;
    return false;
}

} // namespace

ThreadList& Threads()
{
    if (!aRooms.threads)
        aRooms.threads = std::make_shared<ThreadList>();
    return *aRooms.threads;
}

unsigned StartThread(std::u16string_view command)
{
    BeginTurns();
    ThreadList& list = Threads();
    auto thread = std::make_shared<CommandThread>();
    thread->number = list.lastNumber + 1;
    thread->command = CString(command);
    thread->started = Ticks();
    for (int number = 0; number < 3; ++number)
        thread->standard[number] = DuplicateHandle(StandardHandle(number), true);
    auto handed = std::make_unique<std::shared_ptr<CommandThread>>(thread);
    DWORD id = 0;
    thread->handle = OwnedHandle(CreateThread(nullptr, 0, RunThread, handed.get(), 0, &id));
    if (!thread->handle)
        return GetLastError();
    handed.release();
    thread->id = id;
    list.threads.push_back(thread);
    ++list.lastNumber;
    return 0;
}

void AskToEnd(CommandThread& thread)
{
    thread.mustEnd = true;
    TellWorkers();
}

void WaitForThread(const CommandThread& thread)
{
    while (!thread.ended)
        SleepWithPoll(20, [] {
            ThrowIfBroken();
            return true;
        });
}

void FinishThreads(bool hurry)
{
    if (!aRooms.threads || Tls().workerMustEnd)
        return;
    try {
        while (!hurry && AnyRuns())
            SleepWithPoll(20, [] {
                ThrowIfBroken();
                return true;
            });
    } catch (const Break&) {
        ClearBreak();
    }
    for (const auto& thread : Threads().threads)
        AskToEnd(*thread);
    const std::uint64_t end = Ticks() + timeToEnd;
    while (AnyRuns() && Ticks() < end)
        SleepWithPoll(20, [] { return true; });
}
