// The computer's clock, and waiting.
#pragma once

#include <cstdint>

struct ClockTime {
    int year = 0;
    int month = 0; // 1 to 12
    int day = 0;
    int weekday = 0; // 0 is Sunday
    int hour = 0;
    int minute = 0;
    int second = 0;
    int millisecond = 0;
};

ClockTime LocalTime();
ClockTime UtcTime();
// File times (100 nanoseconds since 1601) in the user's local time and back, daylight saving of that very day
// included. Times that no calendar shows stay as they are.
std::uint64_t LocalFileTime(std::uint64_t universal);
std::uint64_t UniversalFileTime(std::uint64_t local);
// The weekday does not matter. False when the user may not set the clock, the reason in the last error.
bool SetLocalTime(const ClockTime& time);

// Milliseconds since the system was started.
std::uint64_t Ticks();

// Microseconds since some moment in the past: for measuring times. The same for all processes.
std::uint64_t PreciseTicks();

// Lets queued calls run, without waiting.
void RunQueuedCalls();

// Waits, letting queued calls run. `poll` is called at the start and whenever a queued call has run, and at
// least every 50 milliseconds; it answers false, or throws, to end the wait early.
bool SleepWithPoll(std::uint64_t milliseconds, bool (*poll)());
