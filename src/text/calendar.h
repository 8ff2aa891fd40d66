// Days and weeks of the Gregorian calendar, for dates from year 1 on.
#pragma once

#include <cstdint>

namespace calendar {

struct Date {
    int year = 1;
    int month = 1; // 1 to 12
    int day = 1;
    friend bool operator==(const Date&, const Date&) = default;
};

struct IsoWeek {
    int year = 1; // to which the week belongs
    int week = 1; // 1 to 53
};

bool IsLeapYear(int year) noexcept;
int DaysInMonth(int year, int month) noexcept;
bool IsDate(const Date& date) noexcept;

// Days since 1 January of year 1, which is day 0 and a Monday.
std::int64_t DayNumber(const Date& date) noexcept;
Date DateOfDay(std::int64_t dayNumber) noexcept;

int DayOfYear(const Date& date) noexcept;      // from 1
int Weekday(const Date& date) noexcept;        // 0 is Sunday
int IsoWeekday(const Date& date) noexcept;     // 1 is Monday, 7 is Sunday
IsoWeek WeekOfDate(const Date& date) noexcept; // ISO 8601: week 1 holds the year's first Thursday

} // namespace calendar
