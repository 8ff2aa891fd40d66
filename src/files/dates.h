// Dates and times of day as people write them, and the day numbers that commands count with. Pure; the
// arithmetic of the calendar is text/calendar.h's.
//
// A day number counts days from 1 January 1980, which is day 0.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/national.h"
#include "text/calendar.h"
#include "text/cstring.h"

std::int64_t DaysFromDate(const calendar::Date& date);
// Nothing for a day outside the years 1 to 9999.
std::optional<calendar::Date> DateFromDays(std::int64_t days);

// A date of three numbers parted by one of "-/." each: in the order told, or year first when the first number
// has four digits. Two-digit years are 1980 to 2079. Eight digits alone are year, month and day.
std::optional<calendar::Date> ParseDate(std::u16string_view text, DateOrder order);

// Turns a date text, or a signed number of days from `today`, into a day number. 0, or the code of the
// invalid-date error, which is not reported.
int MakeDaysFromDate(std::int64_t& days, std::u16string_view text, DateOrder order, std::int64_t today);

CString FormatDate(const calendar::Date& date, DateOrder order, char16_t separator); // "01-31-2026"
CString FormatIsoDate(const calendar::Date& date);                                   // "2026-01-31"

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
// A local file time as listings show it: "01-31-2026  14:05".
CString FormatFileTime(std::uint64_t localFileTime, const NationalSettings& country);
