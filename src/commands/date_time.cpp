#include "commands/date_time.h"

#include "core/command_switches.h"
#include "engine/console_entry.h"
#include "engine/country.h"
#include "engine/output.h"
#include "engine/results.h"
#include "files/dates.h"
#include "lang/messages.h"
#include "platform/clock.h"

const CommandHelp dateHelp = {
    u"Shows or sets the date.",
    u"DATE [/T] [date]",
    u"/T  shows the date and does not ask for another\n"
    u"The date is written in the country's order, or as year-month-day. Nothing is asked when standard "
    u"input is no console.",
    u"date /t\n"
    u"date 2026-01-31",
};

const CommandHelp timeHelp = {
    u"Shows or sets the time of day.",
    u"TIME [/T] [hours[:minutes[:seconds]] [am | pm]]",
    u"/T  shows hours and minutes and does not ask for another time\n"
    u"Nothing is asked when standard input is no console.",
    u"time\n"
    u"time 2:30pm",
};

namespace {

TimeOfDay TimeOf(const ClockTime& now) { return {now.hour, now.minute, now.second, now.millisecond}; }

CString ShownDate(const ClockTime& now)
{
    return Format(u"%s %s", WeekdayName(now.weekday, true), ShortDate(now));
}

int SetDate(std::u16string_view text)
{
    const std::optional<calendar::Date> date = ParseDate(text, Country().dateOrder);
    if (!date)
        return MVError(errors::invalidDate, text);
    ClockTime time = LocalTime();
    time.year = date->year;
    time.month = date->month;
    time.day = date->day;
    return SetLocalTime(time) ? result::success : MVError(0, text);
}

int SetTime(std::u16string_view text)
{
    const std::optional<TimeOfDay> wanted = ParseTime(text);
    if (!wanted)
        return MVError(errors::invalidTime, text);
    ClockTime time = LocalTime();
    time.hour = wanted->hour;
    time.minute = wanted->minute;
    time.second = wanted->second;
    time.millisecond = wanted->millisecond;
    return SetLocalTime(time) ? result::success : MVError(0, text);
}

// Asks until the answer is taken; an empty line leaves the clock alone.
int AskFor(const CString& question, int (*set)(std::u16string_view))
{
    if (!IsConsole(0))
        return result::success;
    CString line;
    while (ReadConsoleLine(line, question)) {
        line.Trim();
        if (line.empty() || set(line) == result::success)
            break;
    }
    return result::success;
}

// Reads the only switch and the rest of the arguments; 0, or a result that ends the command.
int ReadArguments(CString& arguments, bool& showOnly)
{
    std::uint64_t flags = 0;
    if (const int code = ReadSwitches(arguments, u"T", flags))
        return code;
    arguments.Trim();
    showOnly = flags != 0;
    return showOnly && !arguments.empty() ? UsageError() : result::success;
}

} // namespace

int Date_Command(CString& arguments)
{
    bool showOnly = false;
    if (const int code = ReadArguments(arguments, showOnly))
        return code;
    if (!arguments.empty())
        return SetDate(arguments);
    const CString date = ShownDate(LocalTime());
    if (showOnly)
        return PrintLine(date) ? result::success : MVError(0);
    if (!PrintLine(LoadMessage(message::currentDate, date)))
        return MVError(0);
    return AskFor(LoadMessage(message::newDate), SetDate);
}

int Time_Command(CString& arguments)
{
    bool showOnly = false;
    if (const int code = ReadArguments(arguments, showOnly))
        return code;
    if (!arguments.empty())
        return SetTime(arguments);
    const TimeOfDay now = TimeOf(LocalTime());
    if (showOnly)
        return PrintLine(FormatShortTime(now, Country())) ? result::success : MVError(0);
    if (!PrintLine(LoadMessage(message::currentTime, FormatTime(now, Country()))))
        return MVError(0);
    return AskFor(LoadMessage(message::newTime), SetTime);
}
