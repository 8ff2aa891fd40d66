#include "platform/national.h"

#include <windows.h>

namespace {

CString LocaleText(LCTYPE what)
{
    constexpr int longest = 128;
    CString text;
    wchar_t* buffer = reinterpret_cast<wchar_t*>(text.Edit(longest));
    const int units = GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, what, buffer, longest); // counts the NUL
    text.SetLength(units > 0 ? static_cast<std::size_t>(units) - 1 : 0);
    return text;
}

DWORD LocaleNumber(LCTYPE what)
{
    DWORD number = 0;
    GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, what | LOCALE_RETURN_NUMBER,
                    reinterpret_cast<wchar_t*>(&number), sizeof number / sizeof(wchar_t));
    return number;
}

// Some countries write ". " between the parts of a date, and some part thousands with a space that does not
// break: one plain character is what people type.
char16_t FirstUnit(LCTYPE what, char16_t otherwise)
{
    const char16_t unit = LocaleText(what).front();
    constexpr char16_t noBreakSpace = 0xA0;
    constexpr char16_t narrowNoBreakSpace = 0x202F;
    if (unit == noBreakSpace || unit == narrowNoBreakSpace)
        return u' ';
    return unit ? unit : otherwise;
}

} // namespace

NationalSettings SystemNationalSettings()
{
    NationalSettings settings;
    const DWORD order = LocaleNumber(LOCALE_IDATE);
    settings.dateOrder = order == 0   ? DateOrder::MonthDayYear
                         : order == 1 ? DateOrder::DayMonthYear
                                      : DateOrder::YearMonthDay;
    settings.dateSeparator = FirstUnit(LOCALE_SDATE, settings.dateSeparator);
    settings.timeSeparator = FirstUnit(LOCALE_STIME, settings.timeSeparator);
    settings.twelveHours = LocaleNumber(LOCALE_ITIME) == 0;
    settings.decimal = FirstUnit(LOCALE_SDECIMAL, settings.decimal);
    settings.thousands = FirstUnit(LOCALE_STHOUSAND, settings.thousands);
    return settings;
}

CString WeekdayName(int weekday, bool abbreviated)
{
    // The system's own order begins with Monday.
    const LCTYPE first = abbreviated ? LOCALE_SABBREVDAYNAME1 : LOCALE_SDAYNAME1;
    return LocaleText(first + static_cast<LCTYPE>((weekday + 6) % 7));
}

CString MonthName(int month, bool abbreviated)
{
    const LCTYPE first = abbreviated ? LOCALE_SABBREVMONTHNAME1 : LOCALE_SMONTHNAME1;
    return LocaleText(first + static_cast<LCTYPE>(month - 1));
}

CString ShortDate(const ClockTime& day)
{
    SYSTEMTIME date = {};
    date.wYear = static_cast<WORD>(day.year);
    date.wMonth = static_cast<WORD>(day.month);
    date.wDay = static_cast<WORD>(day.day);
    constexpr int longest = 80;
    CString text;
    const int length = GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &date, nullptr,
                                      reinterpret_cast<wchar_t*>(text.Edit(longest)), longest);
    text.SetLength(length > 0 ? static_cast<std::size_t>(length) - 1 : 0);
    return text;
}
