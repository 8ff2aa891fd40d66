// Dates, times of day and ages.
//
// A date may be missing, which means today, or "+n" or "-n" days from today. An age is a moment as file times
// count: 100 nanoseconds since 1601, in universal time.
#include "functions/families.h"

#include "engine/country.h"
#include "functions/answers.h"
#include "functions/arguments.h"
#include "functions/date_forms.h"
#include "platform/clock.h"

namespace {

using View = std::u16string_view;

constexpr std::int64_t secondsPerDay = 86400;
constexpr std::int64_t ticksPerSecond = 10'000'000;
constexpr calendar::Date ageZero{1601, 1, 1};

calendar::Date Today()
{
    const ClockTime now = LocalTime();
    return {now.year, now.month, now.day};
}

TimeOfDay Now()
{
    const ClockTime now = LocalTime();
    return {now.hour, now.minute, now.second, now.millisecond};
}

std::int64_t SecondOf(const TimeOfDay& time) { return (time.hour * 60 + time.minute) * 60 + time.second; }

// 0, or the error for a text that is no date.
int ReadDate(View text, calendar::Date& date)
{
    CString trimmed(text);
    date = Today();
    if (trimmed.Trim().empty())
        return 0;
    if (const auto read = ParseDateAs(trimmed, DateForm::Local, Country())) {
        date = *read;
        return 0;
    }
    std::int64_t days = 0;
    if (const int code = MakeDaysFromDate(days, trimmed, Country().dateOrder, DaysFromDate(date)))
        return code;
    date = *DateFromDays(days);
    return 0;
}

// The form that argument `n` names, the local one when it is missing.
std::optional<DateForm> FormArgument(const FunctionArguments& arguments, std::size_t n)
{
    CString name(arguments.Text(n));
    return name.Trim().empty() ? DateForm::Local : FindDateForm(name);
}

// Functions of one date.
template <typename Question> int AnswerAboutDate(FunctionCall& call, Question question)
{
    calendar::Date date;
    if (const int code = ReadDate(call.arguments, date))
        return code;
    if constexpr (std::is_integral_v<decltype(question(date))>)
        return answer::Number(call, question(date));
    else
        return answer::Text(call, question(date));
}

// "date time", "dateTtime" or the date alone; `time` stays as it is then.
int ReadMoment(View text, calendar::Date& date, TimeOfDay& time)
{
    CString trimmed(text);
    trimmed.Trim();
    const std::size_t gap = trimmed.view().find_first_of(u" T");
    if (const int code = ReadDate(trimmed.view().substr(0, gap), date))
        return code;
    if (gap == View::npos)
        return 0;
    const auto read = ParseTime(trimmed.view().substr(gap + 1));
    time = read.value_or(time);
    return read ? 0 : answer::invalidTime;
}

} // namespace

// @year, @month, @day, @doy[date] and the like
int Year_Function(FunctionCall& call)
{
    return AnswerAboutDate(call, [](const calendar::Date& date) { return date.year; });
}

int Month_Function(FunctionCall& call)
{
    return AnswerAboutDate(call, [](const calendar::Date& date) { return date.month; });
}

int Day_Function(FunctionCall& call)
{
    return AnswerAboutDate(call, [](const calendar::Date& date) { return date.day; });
}

int Doy_Function(FunctionCall& call) { return AnswerAboutDate(call, calendar::DayOfYear); }

// The weekday: its English name, the same in the user's language, its number from 1 for Sunday.
int Dow_Function(FunctionCall& call)
{
    return AnswerAboutDate(call, [](const calendar::Date& date) {
        return EnglishWeekday(calendar::Weekday(date)).substr(0, 3);
    });
}

int Dowf_Function(FunctionCall& call)
{
    return AnswerAboutDate(
        call, [](const calendar::Date& date) { return EnglishWeekday(calendar::Weekday(date)); });
}

int Idow_Function(FunctionCall& call)
{
    return AnswerAboutDate(
        call, [](const calendar::Date& date) { return WeekdayName(calendar::Weekday(date), true); });
}

int Idowf_Function(FunctionCall& call)
{
    return AnswerAboutDate(
        call, [](const calendar::Date& date) { return WeekdayName(calendar::Weekday(date), false); });
}

int Dowi_Function(FunctionCall& call)
{
    return AnswerAboutDate(call, [](const calendar::Date& date) { return calendar::Weekday(date) + 1; });
}

// The ISO calendar: weekday from 1 for Monday, week, and the year that the week belongs to.
int Isodowi_Function(FunctionCall& call) { return AnswerAboutDate(call, calendar::IsoWeekday); }

int Isoweek_Function(FunctionCall& call)
{
    return AnswerAboutDate(call, [](const calendar::Date& date) { return calendar::WeekOfDate(date).week; });
}

int Isowyear_Function(FunctionCall& call)
{
    return AnswerAboutDate(call, [](const calendar::Date& date) { return calendar::WeekOfDate(date).year; });
}

// @date[date]: days from 1 January 1980.
int Date_Function(FunctionCall& call) { return AnswerAboutDate(call, DaysFromDate); }

// @makedate[days[,form]]: the other way round.
int Makedate_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"n|t");
    if (arguments.Error())
        return arguments.Error();
    const auto date = DateFromDays(arguments.Number(0));
    const auto form = FormArgument(arguments, 1);
    if (!date || !form)
        return date ? answer::invalidForm : answer::invalidDate;
    return answer::Text(call, FormatDateAs(*date, *form, Country()));
}

// @dateconv[date,form[,from]]: a date in another form; `from` is the form that it has.
int Dateconv_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"tt|t");
    if (arguments.Error())
        return arguments.Error();
    const auto to = FormArgument(arguments, 1);
    const auto from = FormArgument(arguments, 2);
    if (!to || !from)
        return answer::invalidForm;
    calendar::Date date;
    if (!arguments.Has(2)) {
        if (const int code = ReadDate(arguments.Text(0), date))
            return code;
    } else {
        CString text(arguments.Text(0));
        const auto read = ParseDateAs(text.Trim(), *from, Country());
        if (!read)
            return answer::invalidDate;
        date = *read;
    }
    return answer::Text(call, FormatDateAs(date, *to, Country()));
}

// @datefmt[date,picture[,time]]: the date, and the time of day, as the picture shows.
int Datefmt_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"tt|t");
    if (arguments.Error())
        return arguments.Error();
    calendar::Date date;
    TimeOfDay time = arguments.Text(0).empty() ? Now() : TimeOfDay();
    if (const int code = ReadMoment(arguments.Text(0), date, time))
        return code;
    if (arguments.Has(2)) {
        const auto read = ParseTime(arguments.Text(2));
        if (!read)
            return answer::invalidTime;
        time = *read;
    }
    return answer::Text(call, FormatByPicture(date, time, arguments.Text(1)));
}

// @time[time]: seconds since midnight.
int Time_Function(FunctionCall& call)
{
    CString text(call.arguments);
    const auto time = text.Trim().empty() ? Now() : ParseTime(text);
    return time ? answer::Number(call, SecondOf(*time)) : answer::invalidTime;
}

// @maketime[seconds]: hours:minutes:seconds; a time longer than a day has more hours.
int Maketime_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"n");
    if (arguments.Error())
        return arguments.Error();
    const std::int64_t seconds = arguments.Number(0);
    if (seconds < 0)
        return answer::invalidNumber;
    return answer::Text(call, Format(u"%02d:%02d:%02d", seconds / 3600, seconds / 60 % 60, seconds % 60));
}

// @makeage[date[,time]]: the age of a moment in local time, of now without arguments.
int Makeage_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"|tt");
    if (arguments.Error())
        return arguments.Error();
    calendar::Date date;
    TimeOfDay time = arguments.Text(0).empty() && !arguments.Has(1) ? Now() : TimeOfDay();
    if (const int code = ReadMoment(arguments.Text(0), date, time))
        return code;
    if (arguments.Has(1)) {
        const auto read = ParseTime(arguments.Text(1));
        if (!read)
            return answer::invalidTime;
        time = *read;
    }
    const std::int64_t days = DaysFromDate(date) - DaysFromDate(ageZero);
    if (days < 0)
        return answer::invalidDate;
    const std::int64_t seconds = days * secondsPerDay + SecondOf(time);
    const std::int64_t local = seconds * ticksPerSecond + time.millisecond * (ticksPerSecond / 1000);
    return answer::Number(call,
                          static_cast<std::int64_t>(UniversalFileTime(static_cast<std::uint64_t>(local))));
}

// @agedate[age[,form]]: date and time of day of an age, in local time.
int Agedate_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"n|t");
    if (arguments.Error())
        return arguments.Error();
    const auto form = FormArgument(arguments, 1);
    if (!form)
        return answer::invalidForm;
    if (arguments.Number(0) < 0)
        return answer::invalidNumber;
    const std::uint64_t local = LocalFileTime(static_cast<std::uint64_t>(arguments.Number(0)));
    const auto seconds = static_cast<std::int64_t>(local / ticksPerSecond);
    const auto date = DateFromDays(seconds / secondsPerDay + DaysFromDate(ageZero));
    if (!date)
        return answer::invalidDate;
    return answer::Text(call, Format(u"%s %02d:%02d:%02d", FormatDateAs(*date, *form, Country()),
                                     seconds / 3600 % 24, seconds / 60 % 60, seconds % 60));
}
