#include "files/dates.h"

#include <array>

#include "lang/errors.h"
#include "text/compare.h"
#include "text/format.h"
#include "text/numbers.h"

namespace {

constexpr int firstShortYear = 80; // two-digit years below it belong to the next century

// In the calendar's own day numbers, which count from year 1.
constexpr std::int64_t dayZero = 722814;  // 1 January 1980
constexpr std::int64_t lastDay = 3652058; // 31 December 9999

// Digits at `at`, at most `most` of them; -1 when there is none.
int ReadDigits(std::u16string_view text, std::size_t& at, std::size_t most, std::size_t* count = nullptr)
{
    const std::size_t start = at;
    int number = 0;
    while (at < text.size() && at - start < most && IsDigit(text[at]))
        number = number * 10 + (text[at++] - u'0');
    if (count)
        *count = at - start;
    return at == start ? -1 : number;
}

bool PassAny(std::u16string_view text, std::size_t& at, std::u16string_view units)
{
    if (at >= text.size() || units.find(text[at]) == units.npos)
        return false;
    ++at;
    return true;
}

std::u16string_view Trimmed(std::u16string_view text)
{
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

int FullYear(int year, std::size_t digits)
{
    if (digits > 2)
        return year;
    return year + (year < firstShortYear ? 2000 : 1900);
}

std::optional<calendar::Date> IfValid(const calendar::Date& date)
{
    return calendar::IsDate(date) ? std::optional(date) : std::nullopt;
}

// "a", "am", "p", "pm" at the end of a time, turned into the hour of the day; false for anything else.
bool ApplyHalfOfDay(std::u16string_view half, int& hour)
{
    if (half.empty())
        return hour < 24;
    const bool afternoon = EqualNoCase(half, u"p") || EqualNoCase(half, u"pm");
    if (!afternoon && !EqualNoCase(half, u"a") && !EqualNoCase(half, u"am"))
        return false;
    if (hour < 1 || hour > 12)
        return false;
    hour = hour % 12 + (afternoon ? 12 : 0);
    return true;
}

// The digits of a fraction as thousandths; those behind the third are passed over.
int ReadThousandths(std::u16string_view text, std::size_t& at)
{
    int value = 0;
    int unit = 100;
    for (; at < text.size() && IsDigit(text[at]); ++at, unit /= 10)
        value += (text[at] - u'0') * unit;
    return value;
}

int ClockHour(int hour, bool twelveHours) { return twelveHours ? (hour + 11) % 12 + 1 : hour; }

std::u16string_view HalfOfDay(int hour, bool twelveHours)
{
    if (!twelveHours)
        return u"";
    return hour < 12 ? u" AM" : u" PM";
}

} // namespace

std::int64_t DaysFromDate(const calendar::Date& date) { return calendar::DayNumber(date) - dayZero; }

std::optional<calendar::Date> DateFromDays(std::int64_t days)
{
    if (days < -dayZero || days > lastDay - dayZero)
        return std::nullopt;
    return calendar::DateOfDay(days + dayZero);
}

std::optional<calendar::Date> ParseDate(std::u16string_view text, DateOrder order)
{
    constexpr std::u16string_view separators = u"-/.";
    text = Trimmed(text);
    std::size_t at = 0;
    std::array<int, 3> numbers = {};
    std::array<std::size_t, 3> digits = {};
    numbers[0] = ReadDigits(text, at, 8, &digits[0]);
    if (digits[0] == 8 && at == text.size())
        return IfValid({numbers[0] / 10000, numbers[0] / 100 % 100, numbers[0] % 100});
    for (std::size_t i = 1; i < numbers.size(); ++i) {
        if (!PassAny(text, at, separators))
            return std::nullopt;
        numbers[i] = ReadDigits(text, at, 4, &digits[i]);
    }
    if (at != text.size())
        return std::nullopt;
    if (digits[0] == 4)
        order = DateOrder::YearMonthDay;
    const std::size_t year = order == DateOrder::YearMonthDay ? 0 : 2;
    const std::size_t month = order == DateOrder::MonthDayYear ? 0 : 1;
    const std::size_t day = 3 - year - month;
    const bool yearWritten = digits[year] == 1 || digits[year] == 2 || digits[year] == 4;
    if (!yearWritten || digits[month] > 2 || digits[day] > 2)
        return std::nullopt;
    return IfValid({FullYear(numbers[year], digits[year]), numbers[month], numbers[day]});
}

int MakeDaysFromDate(std::int64_t& days, std::u16string_view text, DateOrder order, std::int64_t today)
{
    constexpr int invalid = static_cast<int>(errors::invalidDate);
    constexpr std::int64_t farthest = 4'000'000; // days; more than the calendar here has
    text = Trimmed(text);
    if (!text.empty() && (text.front() == u'+' || text.front() == u'-')) {
        std::size_t used = 0;
        const std::optional<std::int64_t> offset = ReadDecimal(text, &used);
        if (!offset || used != text.size() || *offset > farthest || *offset < -farthest ||
            !DateFromDays(today + *offset))
            return invalid;
        days = today + *offset;
        return 0;
    }
    const std::optional<calendar::Date> date = ParseDate(text, order);
    if (!date)
        return invalid;
    days = DaysFromDate(*date);
    return 0;
}

CString FormatDate(const calendar::Date& date, DateOrder order, char16_t separator)
{
    if (order == DateOrder::YearMonthDay)
        return Format(u"%04d%c%02d%c%02d", date.year, separator, date.month, separator, date.day);
    const bool monthFirst = order == DateOrder::MonthDayYear;
    return Format(u"%02d%c%02d%c%04d", monthFirst ? date.month : date.day, separator,
                  monthFirst ? date.day : date.month, separator, date.year);
}

CString FormatIsoDate(const calendar::Date& date) { return FormatDate(date, DateOrder::YearMonthDay, u'-'); }

std::optional<TimeOfDay> ParseTime(std::u16string_view text)
{
    constexpr std::u16string_view separators = u":-./";
    text = Trimmed(text);
    std::size_t at = 0;
    std::array<int, 3> parts = {};
    std::size_t count = 0;
    do
        parts[count++] = ReadDigits(text, at, 2);
    while (count < parts.size() && PassAny(text, at, separators));
    TimeOfDay time{parts[0], parts[1], parts[2], 0};
    if (count == parts.size() && PassAny(text, at, u".,"))
        time.millisecond = ReadThousandths(text, at);
    if (parts[count - 1] < 0 || time.hour < 0 || time.minute < 0 || time.minute > 59 || time.second > 59)
        return std::nullopt;
    if (!ApplyHalfOfDay(Trimmed(text.substr(at)), time.hour))
        return std::nullopt;
    return time;
}

CString FormatShortTime(const TimeOfDay& time, const NationalSettings& country)
{
    return Format(u"%02d%c%02d%s", ClockHour(time.hour, country.twelveHours), country.timeSeparator,
                  time.minute, HalfOfDay(time.hour, country.twelveHours));
}

CString FormatTime(const TimeOfDay& time, const NationalSettings& country)
{
    return Format(u"%02d%c%02d%c%02d%c%02d%s", ClockHour(time.hour, country.twelveHours),
                  country.timeSeparator, time.minute, country.timeSeparator, time.second, country.decimal,
                  time.millisecond / 10, HalfOfDay(time.hour, country.twelveHours));
}

CString FormatFileTime(std::uint64_t localFileTime, const NationalSettings& country)
{
    constexpr std::uint64_t ticksPerMillisecond = 10'000;
    constexpr std::uint64_t ticksPerDay = 86'400'000 * ticksPerMillisecond;
    const auto day = static_cast<std::int64_t>(localFileTime / ticksPerDay);
    const auto date = DateFromDays(day + DaysFromDate({1601, 1, 1})).value_or(calendar::Date());
    const auto millisecond = static_cast<int>(localFileTime % ticksPerDay / ticksPerMillisecond);
    const int second = millisecond / 1000;
    const TimeOfDay time = {second / 3600, second / 60 % 60, second % 60, millisecond % 1000};
    return Format(u"%s  %s", FormatDate(date, country.dateOrder, country.dateSeparator),
                  FormatShortTime(time, country));
}
