#include "functions/date_forms.h"

#include <algorithm>

#include "text/compare.h"
#include "text/format.h"
#include "text/numbers.h"

namespace {

using View = std::u16string_view;

constexpr View weekdayNames[] = {u"Sunday",   u"Monday", u"Tuesday", u"Wednesday",
                                 u"Thursday", u"Friday", u"Saturday"};
constexpr View monthNames[] = {u"January", u"February", u"March",     u"April",   u"May",      u"June",
                               u"July",    u"August",   u"September", u"October", u"November", u"December"};

struct FormName {
    View name;
    DateForm form;
};
constexpr FormName formNames[] = {
    {u"local", DateForm::Local},     {u"us", DateForm::Us},     {u"eu", DateForm::Eu},
    {u"iso", DateForm::Iso},         {u"week", DateForm::Week}, {u"ordinal", DateForm::Ordinal},
    {u"compact", DateForm::Compact}, {u"days", DateForm::Days}, {u"julian", DateForm::Julian},
    {u"unix", DateForm::Unix},
};

constexpr std::int64_t julianOfDayZero = 2444240; // of 1 January 1980
constexpr std::int64_t unixDayOfDayZero = 3652;
constexpr std::int64_t secondsPerDay = 86400;

std::optional<std::int64_t> WholeNumber(View text)
{
    std::size_t used = 0;
    const auto number = ReadDecimal(text, &used);
    return number && used == text.size() ? number : std::nullopt;
}

std::optional<calendar::Date> DateFromDayCount(View text, DateForm form)
{
    const auto number = WholeNumber(text);
    if (!number)
        return std::nullopt;
    if (form == DateForm::Days)
        return DateFromDays(*number);
    if (form == DateForm::Julian)
        return *number < 0 ? std::nullopt : DateFromDays(*number - julianOfDayZero);
    const std::int64_t days = *number / secondsPerDay - (*number % secondsPerDay < 0 ? 1 : 0);
    return DateFromDays(days - unixDayOfDayZero);
}

// All digits of `text`, which has this many; nothing else.
std::optional<int> Digits(View text, std::size_t count)
{
    if (text.size() != count || !std::all_of(text.begin(), text.end(), IsDigit))
        return std::nullopt;
    return static_cast<int>(*ReadDecimal(text));
}

// "2026-W05-6"
std::optional<calendar::Date> DateFromWeek(View text)
{
    if (text.size() != 10 || text[4] != u'-' || UpperCase(text[5]) != u'W' || text[8] != u'-')
        return std::nullopt;
    const auto year = Digits(text.substr(0, 4), 4);
    const auto week = Digits(text.substr(6, 2), 2);
    const auto weekday = Digits(text.substr(9), 1);
    if (!year || !week || !weekday || *year < 1 || *weekday < 1 || *weekday > 7)
        return std::nullopt;
    const calendar::Date inFirstWeek{*year, 1, 4};
    const auto date = DateFromDays(DaysFromDate(inFirstWeek) - calendar::IsoWeekday(inFirstWeek) +
                                   (*week - 1) * 7 + *weekday);
    const bool exists = date && calendar::WeekOfDate(*date).week == *week;
    return exists ? date : std::nullopt;
}

// "2026-031"
std::optional<calendar::Date> DateFromOrdinal(View text)
{
    if (text.size() != 8 || text[4] != u'-')
        return std::nullopt;
    const auto year = Digits(text.substr(0, 4), 4);
    const auto day = Digits(text.substr(5), 3);
    if (!year || !day || *year < 1 || *day < 1 || *day > (calendar::IsLeapYear(*year) ? 366 : 365))
        return std::nullopt;
    return DateFromDays(DaysFromDate({*year, 1, 1}) + *day - 1);
}

CString Padded(int number, std::size_t digits) { return Format(u"%0*d", digits, number); }

CString DatePart(const calendar::Date& date, char16_t letter, std::size_t count)
{
    if (letter == u'y')
        return count > 2 ? Padded(date.year, 4) : Padded(date.year % 100, count);
    if (count <= 2)
        return Padded(letter == u'd' ? date.day : date.month, count);
    const View name = letter == u'd' ? EnglishWeekday(calendar::Weekday(date)) : EnglishMonth(date.month);
    return name.substr(0, count == 3 ? 3 : View::npos);
}

CString TimePart(const TimeOfDay& time, char16_t letter, std::size_t count)
{
    count = std::min<std::size_t>(count, 2);
    switch (letter) {
    case u'H': return Padded(time.hour, count);
    case u'h': return Padded((time.hour + 11) % 12 + 1, count);
    case u'm': return Padded(time.minute, count);
    case u's': return Padded(time.second, count);
    default: return View(time.hour < 12 ? u"AM" : u"PM").substr(0, count);
    }
}

} // namespace

std::optional<DateForm> FindDateForm(View name)
{
    for (const FormName& row : formNames) {
        if (EqualNoCase(name, row.name))
            return row.form;
    }
    return std::nullopt;
}

CString FormatDateAs(const calendar::Date& date, DateForm form, const NationalSettings& country)
{
    const std::int64_t days = DaysFromDate(date);
    switch (form) {
    case DateForm::Us: return FormatDate(date, DateOrder::MonthDayYear, u'-');
    case DateForm::Eu: return FormatDate(date, DateOrder::DayMonthYear, u'-');
    case DateForm::Iso: return FormatIsoDate(date);
    case DateForm::Ordinal: return Format(u"%04d-%03d", date.year, calendar::DayOfYear(date));
    case DateForm::Compact: return Format(u"%04d%02d%02d", date.year, date.month, date.day);
    case DateForm::Days: return Format(u"%d", days);
    case DateForm::Julian: return Format(u"%d", days + julianOfDayZero);
    case DateForm::Unix: return Format(u"%d", (days + unixDayOfDayZero) * secondsPerDay);
    case DateForm::Week: {
        const calendar::IsoWeek week = calendar::WeekOfDate(date);
        return Format(u"%04d-W%02d-%d", week.year, week.week, calendar::IsoWeekday(date));
    }
    case DateForm::Local: break;
    }
    return FormatDate(date, country.dateOrder, country.dateSeparator);
}

std::optional<calendar::Date> ParseDateAs(View text, DateForm form, const NationalSettings& country)
{
    switch (form) {
    case DateForm::Us: return ParseDate(text, DateOrder::MonthDayYear);
    case DateForm::Eu: return ParseDate(text, DateOrder::DayMonthYear);
    case DateForm::Iso:
    case DateForm::Compact: return ParseDate(text, DateOrder::YearMonthDay);
    case DateForm::Week: return DateFromWeek(text);
    case DateForm::Ordinal: return DateFromOrdinal(text);
    case DateForm::Days:
    case DateForm::Julian:
    case DateForm::Unix: return DateFromDayCount(text, form);
    case DateForm::Local: break;
    }
    if (const auto date = ParseDate(text, country.dateOrder))
        return date;
    const auto week = DateFromWeek(text);
    return week ? week : DateFromOrdinal(text);
}

View EnglishWeekday(int weekday) { return weekdayNames[weekday]; }
View EnglishMonth(int month) { return monthNames[month - 1]; }

CString FormatByPicture(const calendar::Date& date, const TimeOfDay& time, View picture)
{
    CString text;
    for (std::size_t at = 0; at < picture.size();) {
        const char16_t letter = picture[at];
        if (letter == u'\'') {
            const std::size_t closing = std::min(picture.find(u'\'', at + 1), picture.size());
            text.Append(picture.substr(at + 1, closing - at - 1));
            at = closing + 1;
            continue;
        }
        const std::size_t end = std::min(picture.find_first_not_of(letter, at), picture.size());
        if (View(u"dMy").find(letter) != View::npos)
            text.Append(DatePart(date, letter, end - at));
        else if (View(u"Hhmst").find(letter) != View::npos)
            text.Append(TimePart(time, letter, end - at));
        else
            text.Append(picture.substr(at, end - at));
        at = end;
    }
    return text;
}
