#include "commands/timer.h"

#include "core/command_switches.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "internals/clock_texts.h"
#include "lang/messages.h"
#include "platform/clock.h"
#include "text/format.h"
#include "text/numbers.h"

const CommandHelp timerHelp = {
    u"Measures time with ten stopwatches.",
    u"TIMER [ON | OFF] [/1 ... /10] [/Q] [/S]",
    u"/1 to /10  which of them; the first otherwise\n"
    u"/Q  starts and stops without a word\n"
    u"/S  shows the time so far; the stopwatch runs on\n"
    u"ON starts it, also anew, and OFF stops it; without either it starts when it does not run and stops "
    u"when it does. Times are shown in hours, minutes, seconds and hundredths; %@TIMER[n] gives those of "
    u"stopwatch n. The result is 0, and 2 when the stopwatch that is to be stopped or shown does not run.",
    u"timer & copy c:\\data d:\\ & timer\n"
    u"timer on /3 /q\n"
    u"timer /s /3",
};

namespace {

enum : std::uint64_t { quiet = 1, split = 2 };
constexpr int timerCount = 10;

// The stopwatch named by a switch "/1" to "/10".
int TakeTimerNumber(CString& arguments)
{
    int chosen = 1;
    for (int n = 1; n <= timerCount; ++n)
        if (TakeSwitchWord(arguments, Format(u"%d", n)))
            chosen = n;
    return chosen;
}

bool Show(int timer, unsigned about, const CString& text)
{
    CString line = LoadMessage(about, Format(u"%d", timer));
    return PrintLine(line.Append(text));
}

int Start(int timer, bool silent)
{
    aGlobals.timers[timer - 1] = PreciseTicks();
    return silent || Show(timer, message::timerStarted, DetailedTimeText().TrimLeft()) ? result::success
                                                                                       : MVError(0);
}

int StopOrSplit(int timer, bool stops, bool silent)
{
    const CString elapsed = ElapsedTimeText(timer);
    if (elapsed.empty())
        return MVError(errors::timerNotRunning, Format(u"%d", timer));
    if (stops)
        aGlobals.timers[timer - 1] = 0;
    return silent || Show(timer, stops ? message::timerStopped : message::timerSplit, elapsed)
               ? result::success
               : MVError(0);
}

} // namespace

int Timer_Command(CString& arguments)
{
    const int timer = TakeTimerNumber(arguments);
    std::uint64_t flags = 0;
    if (const int code = ReadSwitches(arguments, u"QS", flags))
        return code;
    const auto wanted = ReadOnOff(arguments);
    if ((!wanted && !arguments.Trim().empty()) || (wanted && (flags & split) != 0))
        return UsageError();
    const bool silent = (flags & quiet) != 0;
    if ((flags & split) != 0)
        return StopOrSplit(timer, false, false);
    const bool runs = aGlobals.timers[timer - 1] != 0;
    return wanted.value_or(!runs) ? Start(timer, silent) : StopOrSplit(timer, true, silent);
}
