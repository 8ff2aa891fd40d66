// Breaks (Ctrl+C): the mark that a console event sets, and the exception that unwinds to the line loop.
//
// The event thread only sets the mark and wakes the main thread. Long loops and wait wrappers call
// ThrowIfBroken; the caller of a whole line (host, batch loop, library edge) catches Break and abandons it.
#pragma once

#include <cstdint>

struct Break {
    int code; // 3 for a break
};

// A person has seen enough of a listing (commands/pager.h). Ends the command that shows it, and nothing else;
// whoever runs a command's handler or shows help catches it.
struct ListingLeft {};

// Console events by Windows' own numbers.
namespace break_event {
constexpr unsigned controlC = 0;
constexpr unsigned controlBreak = 1;
constexpr unsigned close = 2;
constexpr unsigned logOff = 5;
constexpr unsigned shutDown = 6;
// The console goes away: holding signals does not hold that.
constexpr bool EndsShell(unsigned event) { return event >= close; }
} // namespace break_event

// Threads whose workerMustEnd (engine/state.h) is set are to look at it from now on.
void TellWorkers();

// Breaks are for the calling thread from now on.
void TakeBreaksHere();

// From any thread: sets the mark. A later event replaces one of a lower number that nobody has looked at yet.
void MarkBreak(unsigned event = break_event::controlC);
// From any thread: ends the waits of the thread that takes breaks, so that it looks at the mark.
void WakeForBreak();
bool QueryBreak(); // whether a break waits
// Forgets a break that waits, and that one has happened. The end of the console is not forgotten.
void ClearBreak();
// The point where a break is taken: throws Break when one waits, unless signals are held. Costs next to
// nothing otherwise, and nothing happens on threads that breaks are not for.
void ThrowIfBroken();
// The same for the end of the console alone; any other break goes on waiting.
void ThrowIfShellEnds();
// Waits so many milliseconds; a break is taken at once.
void SleepOrBreak(std::uint64_t milliseconds);
// While signals are held a break that is looked at is forgotten.
void HoldSignals();
void EnableSignals();

// Defined in lifecycle/. Called by ThrowIfBroken with the event that waits: acts on it and throws, or leaves
// it for later, or drops it.
void BreakHandler(unsigned event);
// For BreakHandler: this event waits no longer.
void TakeBreak(unsigned event);
// Ends the child processes of the current command and throws Break.
[[noreturn]] void BreakOut(int code);
