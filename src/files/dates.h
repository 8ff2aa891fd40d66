// Dates and times of day as numbers and as people write them. Pure.
//
// Dates are those of the Gregorian calendar from year 1 to 9999, also before it was in use. A day number
// counts days from 1 January 1980, which is day 0; weekdays count from 0, Sunday.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/national.h"
#include "text/cstring.h"

struct CivilDate {
    int year = 1980;
    int month = 1;
    int day = 1;
    friend bool operator==(const CivilDate&, const CivilDate&) = default;
};

bool IsLeapYear(int year);
int DaysInMonth(int year, int month);
bool IsValidDate(const CivilDate& date);

std::int64_t DaysFromDate(const CivilDate& date);
// Nothing for a day outside the years told above.
std::optional<CivilDate> DateFromDays(std::int64_t days);

int WeekdayOf(std::int64_t days);
int DayOfYear(const CivilDate& date); // from 1

// Weeks begin on Monday; week 1 is the one that holds the year's first Thursday, so the days around New Year
// may belong to a week of the other year.
struct IsoWeek {
    int year = 0;
    int week = 0;    // 1 to 53
    int weekday = 0; // 1 is Monday
};
IsoWeek IsoWeekOf(std::int64_t days);

// A date of three numbers parted by one of "-/." each: in the order told, or year first when the first number
// has four digits. Two-digit years are 1980 to 2079. Eight digits alone are year, month and day.
std::optional<CivilDate> ParseDate(std::u16string_view text, DateOrder order);

// Turns a date text, or a signed number of days from `today`, into a day number. 0, or the code of the
// invalid-date error, which is not reported.
int MakeDaysFromDate(std::int64_t& days, std::u16string_view text, DateOrder order, std::int64_t today);

CString FormatDate(const CivilDate& date, DateOrder order, char16_t separator); // "01-31-2026"
CString FormatIsoDate(const CivilDate& date);                                   // "2026-01-31"

struct TimeOfDay {
    int hour = 0;
    int minute = 0;
    int second = 0;
    int millisecond = 0;
    friend bool operator==(const TimeOfDay&, const TimeOfDay&) = default;
};

// Hours, and minutes, seconds and a fraction of them as far as they are written, parted by one of ":-./"
// each, "a", "am", "p" or "pm" behind them for twelve-hour times.
std::optional<TimeOfDay> ParseTime(std::u16string_view text);

// "14:05", or "02:05 PM" with twelve hours.
CString FormatShortTime(const TimeOfDay& time, const NationalSettings& country);
// "14:05:09.37", or "02:05:09.37 PM".
CString FormatTime(const TimeOfDay& time, const NationalSettings& country);
