// Today and now, in local and universal time, and the time zone.
#include "internals/families.h"

#include <windows.h>

#include "engine/country.h"
#include "engine/state.h"
#include "internals/clock_texts.h"
#include "internals/values.h"
#include "platform/clock.h"
#include "platform/national.h"
#include "text/calendar.h"

namespace {

constexpr const char16_t* weekdayNames[] = {u"Sunday",   u"Monday", u"Tuesday", u"Wednesday",
                                            u"Thursday", u"Friday", u"Saturday"};
constexpr const char16_t* monthNames[] = {u"January",   u"February", u"March",    u"April",
                                          u"May",       u"June",     u"July",     u"August",
                                          u"September", u"October",  u"November", u"December"};

calendar::Date DateOf(const ClockTime& time) { return {time.year, time.month, time.day}; }

calendar::Date Today() { return DateOf(LocalTime()); }

CString IsoDate(const ClockTime& time) { return Format(u"%04d-%02d-%02d", time.year, time.month, time.day); }

// All parts without separators, for names of files.
CString CompactTime(const ClockTime& time)
{
    return Format(u"%04d%02d%02d%02d%02d%02d", time.year, time.month, time.day, time.hour, time.minute,
                  time.second);
}

CString TimeOfDay(const ClockTime& time)
{
    const NationalSettings national = Country();
    const bool twelve = national.twelveHours;
    const int hour = twelve ? (time.hour + 11) % 12 + 1 : time.hour;
    return Format(u"%2d%c%02d%c%02d%s", hour, national.timeSeparator, time.minute, national.timeSeparator,
                  time.second, twelve ? (time.hour < 12 ? u"a" : u"p") : u"");
}

struct ZoneState {
    TIME_ZONE_INFORMATION zone = {};
    bool daylight = false;
    bool known = false;
};

ZoneState CurrentZone()
{
    ZoneState state;
    const DWORD answer = GetTimeZoneInformation(&state.zone);
    state.known = answer != TIME_ZONE_ID_INVALID;
    state.daylight = answer == TIME_ZONE_ID_DAYLIGHT;
    return state;
}

std::u16string_view ZoneName(const wchar_t* name) { return reinterpret_cast<const char16_t*>(name); }

} // namespace

CString ShortDateText() { return ShortDate(LocalTime()); }

CString DetailedTimeText()
{
    const ClockTime time = LocalTime();
    return Format(u"%2d:%02d:%02d.%02d", time.hour, time.minute, time.second, time.millisecond / 10);
}

CString ElapsedTimeText(int timer)
{
    const std::uint64_t began = aGlobals.timers[timer - 1];
    if (began == 0)
        return CString();
    constexpr std::uint64_t hundredth = 10'000; // microseconds
    const std::uint64_t elapsed = (PreciseTicks() - began) / hundredth;
    const std::uint64_t seconds = elapsed / 100;
    return Format(u"%u:%02u:%02u.%02u", seconds / 3600, seconds / 60 % 60, seconds % 60, elapsed % 100);
}

bool Year_Variable(CString& value) { return AnswerNumber(value, LocalTime().year); }
bool Month_Variable(CString& value) { return AnswerNumber(value, LocalTime().month); }
bool Day_Variable(CString& value) { return AnswerNumber(value, LocalTime().day); }
bool Hour_Variable(CString& value) { return AnswerNumber(value, LocalTime().hour); }
bool Minute_Variable(CString& value) { return AnswerNumber(value, LocalTime().minute); }
bool Second_Variable(CString& value) { return AnswerNumber(value, LocalTime().second); }

// English names; those with an "i" in front are in the user's language.
bool Monthf_Variable(CString& value) { return AnswerText(value, monthNames[LocalTime().month - 1]); }
bool Imonth_Variable(CString& value) { return AnswerText(value, MonthName(LocalTime().month, true)); }
bool Imonthf_Variable(CString& value) { return AnswerText(value, MonthName(LocalTime().month, false)); }
bool Dowf_Variable(CString& value) { return AnswerText(value, weekdayNames[calendar::Weekday(Today())]); }
bool Idow_Variable(CString& value)
{
    return AnswerText(value, WeekdayName(calendar::Weekday(Today()), true));
}
bool Idowf_Variable(CString& value)
{
    return AnswerText(value, WeekdayName(calendar::Weekday(Today()), false));
}

bool Dow_Variable(CString& value)
{
    return AnswerText(value, std::u16string_view(weekdayNames[calendar::Weekday(Today())]).substr(0, 3));
}

// 1 is Sunday.
bool Dowi_Variable(CString& value) { return AnswerNumber(value, calendar::Weekday(Today()) + 1); }
bool Doy_Variable(CString& value) { return AnswerNumber(value, calendar::DayOfYear(Today())); }

// The ISO calendar: 1 is Monday, and the year is the one that the week belongs to.
bool Isodowi_Variable(CString& value) { return AnswerNumber(value, calendar::IsoWeekday(Today())); }
bool Isoweek_Variable(CString& value) { return AnswerNumber(value, calendar::WeekOfDate(Today()).week); }
bool Isowyear_Variable(CString& value) { return AnswerNumber(value, calendar::WeekOfDate(Today()).year); }

// "2026-W47-6"
bool Isowdate_Variable(CString& value)
{
    const calendar::Date today = Today();
    const calendar::IsoWeek week = calendar::WeekOfDate(today);
    value = Format(u"%04d-W%02d-%d", week.year, week.week, calendar::IsoWeekday(today));
    return true;
}

// "2026-325"
bool Isordate_Variable(CString& value)
{
    const calendar::Date today = Today();
    value = Format(u"%04d-%03d", today.year, calendar::DayOfYear(today));
    return true;
}

bool Date_Variable(CString& value) { return AnswerText(value, ShortDateText()); }
bool Time_Variable(CString& value) { return AnswerText(value, TimeOfDay(LocalTime()).TrimLeft()); }
bool Isodate_Variable(CString& value) { return AnswerText(value, IsoDate(LocalTime())); }
bool Datetime_Variable(CString& value) { return AnswerText(value, CompactTime(LocalTime())); }

bool Utcdate_Variable(CString& value) { return AnswerText(value, ShortDate(UtcTime())); }
bool Utctime_Variable(CString& value) { return AnswerText(value, TimeOfDay(UtcTime()).TrimLeft()); }
bool Utcisodate_Variable(CString& value) { return AnswerText(value, IsoDate(UtcTime())); }
bool Utcdatetime_Variable(CString& value) { return AnswerText(value, CompactTime(UtcTime())); }
bool Utchour_Variable(CString& value) { return AnswerNumber(value, UtcTime().hour); }
bool Utcminute_Variable(CString& value) { return AnswerNumber(value, UtcTime().minute); }
bool Utcsecond_Variable(CString& value) { return AnswerNumber(value, UtcTime().second); }

// Whether daylight saving time is in force.
bool Dst_Variable(CString& value) { return AnswerFlag(value, CurrentZone().daylight); }

// The zone's name and its distance from universal time in minutes (west is positive), as they are now and,
// with "st", as they are in standard time.
bool Tzn_Variable(CString& value)
{
    const ZoneState state = CurrentZone();
    return AnswerText(value, ZoneName(state.daylight ? state.zone.DaylightName : state.zone.StandardName));
}

bool Tzo_Variable(CString& value)
{
    const ZoneState state = CurrentZone();
    return AnswerNumber(value, state.zone.Bias +
                                   (state.daylight ? state.zone.DaylightBias : state.zone.StandardBias));
}

bool Stzn_Variable(CString& value) { return AnswerText(value, ZoneName(CurrentZone().zone.StandardName)); }

bool Stzo_Variable(CString& value)
{
    const ZoneState state = CurrentZone();
    return AnswerNumber(value, state.zone.Bias + state.zone.StandardBias);
}

bool Timezone_Variable(CString& value) { return Tzn_Variable(value); }
