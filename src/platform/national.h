// How the user's country writes dates, times and numbers.
#pragma once

#include "platform/clock.h"
#include "text/cstring.h"

enum class DateOrder { MonthDayYear, DayMonthYear, YearMonthDay };

// Plain data: it is copied to the child of a pipe.
struct NationalSettings {
    DateOrder dateOrder = DateOrder::MonthDayYear;
    char16_t dateSeparator = u'-';
    char16_t timeSeparator = u':';
    bool twelveHours = false;
    char16_t decimal = u'.';
    char16_t thousands = u',';
};

// As the system has them now; a handful of system calls.
NationalSettings SystemNationalSettings();

// Names in the user's language; `weekday` 0 is Sunday, `month` 1 is January.
CString WeekdayName(int weekday, bool abbreviated);
CString MonthName(int month, bool abbreviated);

// The day as the user's settings write a short date.
CString ShortDate(const ClockTime& day);
