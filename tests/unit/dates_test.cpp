#include "files/dates.h"

#include <gtest/gtest.h>

#include "text/encoding.h"

namespace {

constexpr DateOrder mdy = DateOrder::MonthDayYear;
constexpr DateOrder dmy = DateOrder::DayMonthYear;
constexpr DateOrder ymd = DateOrder::YearMonthDay;

} // namespace

TEST(Dates, DayNumbersOfKnownDates)
{
    struct Known {
        calendar::Date date;
        std::int64_t days;
        int weekday;
    };
    const Known rows[] = {
        {{1980, 1, 1}, 0, 2},      {{1979, 12, 31}, -1, 1}, {{1970, 1, 1}, -3652, 4},
        {{2000, 2, 29}, 7364, 2},  {{2000, 3, 1}, 7365, 3}, {{2026, 1, 31}, 16832, 6},
        {{1900, 3, 1}, -29160, 4}, {{1, 1, 1}, -722814, 1}, {{9999, 12, 31}, 2929244, 5},
    };
    for (const Known& row : rows) {
        const std::string name = ToUtf8(FormatIsoDate(row.date));
        EXPECT_EQ(DaysFromDate(row.date), row.days) << name;
        EXPECT_EQ(DateFromDays(row.days), row.date) << name;
        EXPECT_EQ(calendar::Weekday(row.date), row.weekday) << name;
    }
}

TEST(Dates, EveryDayFollowsTheOneBefore)
{
    calendar::Date expected = {1, 1, 1};
    const std::int64_t first = DaysFromDate(expected);
    const std::int64_t last = DaysFromDate({9999, 12, 31});
    for (std::int64_t day = first; day <= last; ++day) {
        ASSERT_EQ(DateFromDays(day), expected) << day;
        ASSERT_EQ(DaysFromDate(expected), day);
        if (++expected.day > calendar::DaysInMonth(expected.year, expected.month)) {
            expected.day = 1;
            expected.month = expected.month % 12 + 1;
            expected.year += expected.month == 1;
        }
    }
    EXPECT_FALSE(DateFromDays(first - 1));
    EXPECT_FALSE(DateFromDays(last + 1));
    EXPECT_FALSE(DateFromDays(INT64_MAX));
    EXPECT_FALSE(DateFromDays(INT64_MIN));
}

TEST(Dates, DayOfYear)
{
    EXPECT_EQ(calendar::DayOfYear({2026, 1, 1}), 1);
    EXPECT_EQ(calendar::DayOfYear({2026, 12, 31}), 365);
    EXPECT_EQ(calendar::DayOfYear({2024, 2, 29}), 60);
    EXPECT_EQ(calendar::DayOfYear({2024, 12, 31}), 366);
}

TEST(Dates, IsoWeeksAroundNewYear)
{
    struct Week {
        calendar::Date date;
        int year, week, weekday;
    };
    const Week rows[] = {
        {{2005, 1, 1}, 2004, 53, 6},  {{2005, 12, 31}, 2005, 52, 6}, {{2007, 1, 1}, 2007, 1, 1},
        {{2008, 12, 29}, 2009, 1, 1}, {{2010, 1, 3}, 2009, 53, 7},   {{2020, 12, 31}, 2020, 53, 4},
        {{2026, 6, 15}, 2026, 25, 1},
    };
    for (const Week& row : rows) {
        const calendar::IsoWeek week = calendar::WeekOfDate(row.date);
        const std::string name = ToUtf8(FormatIsoDate(row.date));
        EXPECT_EQ(week.year, row.year) << name;
        EXPECT_EQ(week.week, row.week) << name;
        EXPECT_EQ(calendar::IsoWeekday(row.date), row.weekday) << name;
    }
}

TEST(Dates, Parsing)
{
    struct Case {
        std::u16string_view text;
        DateOrder order;
        std::optional<calendar::Date> date;
    };
    const Case rows[] = {
        {u"1-31-2026", mdy, calendar::Date{2026, 1, 31}},
        {u" 01/31/26 ", mdy, calendar::Date{2026, 1, 31}},
        {u"31.1.2026", dmy, calendar::Date{2026, 1, 31}},
        {u"26-1-31", ymd, calendar::Date{2026, 1, 31}},
        {u"2026-01-31", mdy, calendar::Date{2026, 1, 31}},
        {u"2026/1/31", dmy, calendar::Date{2026, 1, 31}},
        {u"20260131", dmy, calendar::Date{2026, 1, 31}},
        {u"1-1-79", mdy, calendar::Date{2079, 1, 1}},
        {u"1-1-80", mdy, calendar::Date{1980, 1, 1}},
        {u"2-29-2024", mdy, calendar::Date{2024, 2, 29}},
        {u"2-29-2023", mdy, std::nullopt},
        {u"31-1-2026", mdy, std::nullopt},
        {u"1-31-2026", dmy, std::nullopt},
        {u"0-1-2026", mdy, std::nullopt},
        {u"1-1-026", mdy, std::nullopt},
        {u"1-1-0000", mdy, std::nullopt},
        {u"1-1", mdy, std::nullopt},
        {u"1-1-2026-1", mdy, std::nullopt},
        {u"1 1 2026", mdy, std::nullopt},
        {u"1--2026", mdy, std::nullopt},
        {u"20261301", mdy, std::nullopt},
        {u"99999999", mdy, std::nullopt},
        {u"123456789-1-1", mdy, std::nullopt},
        {u"2026-001-01", mdy, std::nullopt},
        {u"today", mdy, std::nullopt},
        {u"", mdy, std::nullopt},
    };
    for (const Case& row : rows)
        EXPECT_EQ(ParseDate(row.text, row.order), row.date) << ToUtf8(row.text);
}

TEST(Dates, DaysFromDatesAndOffsets)
{
    const std::int64_t today = DaysFromDate({2026, 3, 1});
    struct Case {
        std::u16string_view text;
        std::optional<calendar::Date> date;
    };
    const Case rows[] = {
        {u"+0", calendar::Date{2026, 3, 1}},
        {u"-1", calendar::Date{2026, 2, 28}},
        {u"+366", calendar::Date{2027, 3, 2}},
        {u"1/2/2025", calendar::Date{2025, 1, 2}},
        {u"7", std::nullopt},
        {u"-1x", std::nullopt},
        {u"-", std::nullopt},
        {u"+9999999", std::nullopt},
        {u"+3000000", std::nullopt},
        {u"-99999999999999999999", std::nullopt},
    };
    for (const Case& row : rows) {
        std::int64_t days = -1;
        const int code = MakeDaysFromDate(days, row.text, mdy, today);
        EXPECT_EQ(code == 0, row.date.has_value()) << ToUtf8(row.text);
        EXPECT_EQ(days, row.date ? DaysFromDate(*row.date) : -1) << ToUtf8(row.text);
    }
}

TEST(Dates, Formatting)
{
    EXPECT_EQ(ToUtf8(FormatDate({2026, 1, 31}, mdy, u'-')), "01-31-2026");
    EXPECT_EQ(ToUtf8(FormatDate({2026, 1, 31}, dmy, u'.')), "31.01.2026");
    EXPECT_EQ(ToUtf8(FormatDate({2026, 1, 31}, ymd, u'/')), "2026/01/31");
    EXPECT_EQ(ToUtf8(FormatIsoDate({80, 1, 2})), "0080-01-02");
}

TEST(Times, Parsing)
{
    struct Case {
        std::u16string_view text;
        std::optional<TimeOfDay> time;
    };
    const Case rows[] = {
        {u"14:05:09", TimeOfDay{14, 5, 9, 0}},
        {u"14:05:09.37", TimeOfDay{14, 5, 9, 370}},
        {u"9:5:3,1239", TimeOfDay{9, 5, 3, 123}},
        {u"7", TimeOfDay{7, 0, 0, 0}},
        {u"7.30", TimeOfDay{7, 30, 0, 0}},
        {u" 23-59 ", TimeOfDay{23, 59, 0, 0}},
        {u"12am", TimeOfDay{0, 0, 0, 0}},
        {u"12:30 PM", TimeOfDay{12, 30, 0, 0}},
        {u"1:02:03p", TimeOfDay{13, 2, 3, 0}},
        {u"11:59a", TimeOfDay{11, 59, 0, 0}},
        {u"24:00", std::nullopt},
        {u"13pm", std::nullopt},
        {u"0am", std::nullopt},
        {u"10:60", std::nullopt},
        {u"10:00:60", std::nullopt},
        {u"10:", std::nullopt},
        {u"10:00:", std::nullopt},
        {u":30", std::nullopt},
        {u"100", std::nullopt},
        {u"1:2:3:4", std::nullopt},
        {u"noon", std::nullopt},
        {u"", std::nullopt},
    };
    for (const Case& row : rows)
        EXPECT_EQ(ParseTime(row.text), row.time) << ToUtf8(row.text);
}

TEST(Times, Formatting)
{
    NationalSettings country;
    EXPECT_EQ(ToUtf8(FormatTime({9, 5, 7, 389}, country)), "09:05:07.38");
    EXPECT_EQ(ToUtf8(FormatShortTime({23, 5, 7, 0}, country)), "23:05");
    country.twelveHours = true;
    country.timeSeparator = u'.';
    country.decimal = u',';
    EXPECT_EQ(ToUtf8(FormatTime({0, 5, 7, 0}, country)), "12.05.07,00 AM");
    EXPECT_EQ(ToUtf8(FormatShortTime({12, 5, 0, 0}, country)), "12.05 PM");
    EXPECT_EQ(ToUtf8(FormatShortTime({23, 5, 0, 0}, country)), "11.05 PM");
}
