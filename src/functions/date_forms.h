// The forms in which scripts read and write dates. Pure.
//
//   local     the country's order and separator       week      2026-W05-6, ISO 8601
//   us        01-31-2026                              ordinal   2026-031, the day of the year
//   eu        31-01-2026                              compact   20260131
//   iso       2026-01-31                              days      from 1 January 1980, which is 0
//   julian    days from 1 January 4713 B. C.          unix      seconds from 1 January 1970
#pragma once

#include <optional>
#include <string_view>

#include "files/dates.h"

enum class DateForm { Local, Us, Eu, Iso, Week, Ordinal, Compact, Days, Julian, Unix };

// By its name; case does not count.
std::optional<DateForm> FindDateForm(std::u16string_view name);

CString FormatDateAs(const calendar::Date& date, DateForm form, const NationalSettings& country);
// A date in this form. Local takes what commands take (files/dates.h), and the forms week and ordinal.
std::optional<calendar::Date> ParseDateAs(std::u16string_view text, DateForm form,
                                          const NationalSettings& country);

std::u16string_view EnglishWeekday(int weekday); // 0 is Sunday
std::u16string_view EnglishMonth(int month);     // 1 is January

// By a picture: runs of the letters below stand for parts, text in single quotes and all else for itself.
//   d dd  day         M MM  month        yy yyyy  year       H HH  hour of 24    m mm  minute   t tt  A, AM
//   ddd dddd  weekday MMM MMMM  its name                     h hh  hour of 12    s ss  second
CString FormatByPicture(const calendar::Date& date, const TimeOfDay& time, std::u16string_view picture);
