#include "platform/clock.h"

#include <algorithm>

#include <windows.h>

#include "platform/turns.h"

namespace {

ClockTime FromSystemTime(const SYSTEMTIME& time)
{
    return {time.wYear, time.wMonth,  time.wDay,    time.wDayOfWeek,
            time.wHour, time.wMinute, time.wSecond, time.wMilliseconds};
}

using TimeConversion = BOOL(WINAPI*)(const TIME_ZONE_INFORMATION*, const SYSTEMTIME*, SYSTEMTIME*);

// Calendar times know no more than milliseconds: only the difference is taken from them.
std::uint64_t ConvertFileTime(std::uint64_t fileTime, TimeConversion convert)
{
    constexpr std::uint64_t ticksPerSecond = 10'000'000;
    const std::uint64_t second = fileTime / ticksPerSecond * ticksPerSecond;
    const FILETIME asked = {static_cast<DWORD>(second), static_cast<DWORD>(second >> 32)};
    SYSTEMTIME from;
    SYSTEMTIME to;
    FILETIME back;
    if (!FileTimeToSystemTime(&asked, &from) || !convert(nullptr, &from, &to) ||
        !SystemTimeToFileTime(&to, &back))
        return fileTime;
    return (static_cast<std::uint64_t>(back.dwHighDateTime) << 32 | back.dwLowDateTime) + (fileTime - second);
}

BOOL WINAPI LocalFromUniversal(const TIME_ZONE_INFORMATION* zone, const SYSTEMTIME* from, SYSTEMTIME* to)
{
    return SystemTimeToTzSpecificLocalTime(zone, from, to);
}

BOOL WINAPI UniversalFromLocal(const TIME_ZONE_INFORMATION* zone, const SYSTEMTIME* from, SYSTEMTIME* to)
{
    return TzSpecificLocalTimeToSystemTime(zone, from, to);
}

} // namespace

std::uint64_t LocalFileTime(std::uint64_t universal)
{
    return ConvertFileTime(universal, LocalFromUniversal);
}
std::uint64_t UniversalFileTime(std::uint64_t local) { return ConvertFileTime(local, UniversalFromLocal); }

ClockTime LocalTime()
{
    SYSTEMTIME time;
    GetLocalTime(&time);
    return FromSystemTime(time);
}

ClockTime UtcTime()
{
    SYSTEMTIME time;
    GetSystemTime(&time);
    return FromSystemTime(time);
}

bool SetLocalTime(const ClockTime& time)
{
    SYSTEMTIME wanted = {};
    wanted.wYear = static_cast<WORD>(time.year);
    wanted.wMonth = static_cast<WORD>(time.month);
    wanted.wDay = static_cast<WORD>(time.day);
    wanted.wHour = static_cast<WORD>(time.hour);
    wanted.wMinute = static_cast<WORD>(time.minute);
    wanted.wSecond = static_cast<WORD>(time.second);
    wanted.wMilliseconds = static_cast<WORD>(time.millisecond);
    // Twice: the first call still counts with the daylight saving time of the old date.
    return ::SetLocalTime(&wanted) && ::SetLocalTime(&wanted);
}

std::uint64_t Ticks() { return GetTickCount64(); }

std::uint64_t PreciseTicks()
{
    LARGE_INTEGER counter;
    LARGE_INTEGER perSecond;
    QueryPerformanceCounter(&counter);
    QueryPerformanceFrequency(&perSecond);
    const auto ticks = static_cast<std::uint64_t>(counter.QuadPart);
    const auto rate = static_cast<std::uint64_t>(perSecond.QuadPart);
    constexpr std::uint64_t million = 1'000'000;
    return ticks / rate * million + ticks % rate * million / rate;
}

void RunQueuedCalls() { SleepEx(0, TRUE); }

bool SleepWithPoll(std::uint64_t milliseconds, bool (*poll)())
{
    constexpr std::uint64_t longestStep = 50;
    const std::uint64_t end = Ticks() + milliseconds;
    while (poll()) {
        const std::uint64_t now = Ticks();
        if (now >= end)
            return true;
        const WaitingAside others;
        SleepEx(static_cast<DWORD>(std::min(end - now, longestStep)), TRUE);
    }
    return false;
}
