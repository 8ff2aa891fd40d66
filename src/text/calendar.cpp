#include "text/calendar.h"

namespace calendar {

namespace {

constexpr std::int64_t daysOf400Years = 146097;

// Days from 1 January of year 1 to 1 January of `year`.
std::int64_t DaysBeforeYear(std::int64_t year)
{
    const std::int64_t past = year - 1;
    return past * 365 + past / 4 - past / 100 + past / 400;
}

} // namespace

bool IsLeapYear(int year) noexcept { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }

int DaysInMonth(int year, int month) noexcept
{
    constexpr int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && IsLeapYear(year) ? 29 : days[month - 1];
}

bool IsDate(const Date& date) noexcept
{
    return date.year >= 1 && date.year <= 9999 && date.month >= 1 && date.month <= 12 && date.day >= 1 &&
           date.day <= DaysInMonth(date.year, date.month);
}

int DayOfYear(const Date& date) noexcept
{
    int days = date.day;
    for (int month = 1; month < date.month; ++month)
        days += DaysInMonth(date.year, month);
    return days;
}

std::int64_t DayNumber(const Date& date) noexcept { return DaysBeforeYear(date.year) + DayOfYear(date) - 1; }

Date DateOfDay(std::int64_t dayNumber) noexcept
{
    // The average length of a year gives the year or the one before.
    Date date;
    date.year = static_cast<int>(dayNumber * 400 / daysOf400Years) + 1;
    if (DaysBeforeYear(date.year) > dayNumber)
        --date.year;
    else if (DaysBeforeYear(date.year + 1) <= dayNumber)
        ++date.year;
    int day = static_cast<int>(dayNumber - DaysBeforeYear(date.year)) + 1;
    while (day > DaysInMonth(date.year, date.month))
        day -= DaysInMonth(date.year, date.month++);
    date.day = day;
    return date;
}

int Weekday(const Date& date) noexcept { return static_cast<int>((DayNumber(date) + 1) % 7); }

int IsoWeekday(const Date& date) noexcept { return static_cast<int>(DayNumber(date) % 7) + 1; }

IsoWeek WeekOfDate(const Date& date) noexcept
{
    // The Thursday of the date's week tells the year that the week belongs to.
    const Date thursday = DateOfDay(DayNumber(date) - IsoWeekday(date) + 4);
    return {thursday.year, (DayOfYear(thursday) - 1) / 7 + 1};
}

} // namespace calendar
