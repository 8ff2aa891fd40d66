#include "files/ranges.h"

#include <gtest/gtest.h>

#include "files/dates.h"
#include "lang/errors.h"
#include "text/encoding.h"
#include "text/format.h"

namespace {

constexpr int invalidParameter = 87;
constexpr std::uint64_t second = 10'000'000;

// The file time of a UTC date and time.
std::uint64_t At(int year, int month, int day, int hour = 0, int minute = 0, int seconds = 0)
{
    const std::int64_t days = DaysFromDate({year, month, day}) - DaysFromDate({1601, 1, 1});
    return (static_cast<std::uint64_t>(days) * 86400 +
            static_cast<std::uint64_t>(hour * 3600 + minute * 60 + seconds)) *
           second;
}

// A zone two hours ahead of UTC; now it is 21 November 2026, 10:30:15 there.
class FakeClock : public RangeClock {
public:
    std::uint64_t Now() override { return At(2026, 11, 21, 8, 30, 15); }
    std::uint64_t ToLocal(std::uint64_t fileTime) override { return fileTime + 7200 * second; }
};

class FakeQuestions : public RangeQuestions {
public:
    std::uint64_t CompressedSize() override { return 100; }
    CString Owner() override { return u"HOUSE\\Anna"; }
    CString Description() override { return description; }
    CString description = u"Holiday pictures";
};

int Take(CString& arguments, RANGES& ranges, bool onlyLeading = false,
         DateOrder order = DateOrder::MonthDayYear)
{
    static FakeClock clock;
    RangeReading reading{clock, Syntax(), order, RegexSyntax::Perl, nullptr};
    return TakeRanges(arguments, ranges, onlyLeading, reading);
}

struct File {
    std::u16string_view name = u"file.txt";
    EntryFacts facts;
};

bool Selects(const char16_t* range, const File& file)
{
    CString arguments(range);
    RANGES ranges;
    EXPECT_EQ(Take(arguments, ranges), 0) << ToUtf8(CString(range));
    EXPECT_TRUE(arguments.empty()) << ToUtf8(arguments);
    FakeClock clock;
    FakeQuestions questions;
    return IsInRanges(ranges, file.name, file.facts, clock, questions);
}

std::string Shown(const DateRange& range)
{
    return ToUtf8(Format(u"%s %d .. %s %d", FormatIsoDate(*DateFromDays(range.from.day)), range.from.second,
                         FormatIsoDate(*DateFromDays(range.to.day)), range.to.second));
}

} // namespace

TEST(Ranges, AreTakenOutOfTheArguments)
{
    struct Row {
        const char16_t* arguments;
        bool onlyLeading;
        const char16_t* rest;
        std::size_t ranges;
    };
    const Row rows[] = {
        {u"/[d-1] *.txt", false, u"*.txt", 1},
        {u"*.txt /[d-1]", false, u"*.txt", 1},
        {u"*.txt /[d-1]", true, u"*.txt /[d-1]", 0},
        {u"/b /[d-1] /[s1k] /p *.txt /q", false, u"/b /p *.txt /q", 2},
        {u"/b/[d-1]/s x", false, u"/b/s x", 1},
        {u"/[d1/2/2026,3/4/2026] x", false, u"x", 1},
        {u"/![d-1] x", false, u"x", 1},
        {u"/[!*.obj a[0-9].c \"b c\"] x", false, u"x", 1},
        {u"/I\"one /[d-1] two\" x", false, u"x", 1},
        {u"/!i\"one\" /ir\"two\" /I x", false, u"/I x", 2},
        {u"a/[d-1] /// /[d-1]", false, u"a/[d-1] /// /[d-1]", 0},
        {u"[abc].txt \"/[d-1]\"", false, u"[abc].txt \"/[d-1]\"", 0},
        {u"/[d-1,2026-11-1 ]", false, u"", 1},
        {u"", false, u"", 0},
    };
    for (const Row& row : rows) {
        CString arguments(row.arguments);
        RANGES ranges;
        EXPECT_EQ(Take(arguments, ranges, row.onlyLeading), 0) << ToUtf8(CString(row.arguments));
        EXPECT_EQ(ToUtf8(arguments), ToUtf8(CString(row.rest)));
        const std::size_t count = ranges.dates.size() + ranges.sizes.size() + ranges.descriptions.size() +
                                  (ranges.excludedNames.empty() ? 0 : 1);
        EXPECT_EQ(count, row.ranges) << ToUtf8(CString(row.arguments));
        EXPECT_EQ(ranges.Empty(), row.ranges == 0);
    }
}

TEST(Ranges, DatesAreRead)
{
    struct Row {
        const char16_t* text;
        DateOrder order;
        const char* expected;
    };
    constexpr DateOrder mdy = DateOrder::MonthDayYear;
    constexpr DateOrder dmy = DateOrder::DayMonthYear;
    const Row rows[] = {
        {u"/[d2026-11-01,2026-11-05]", mdy, "2026-11-01 0 .. 2026-11-05 86399"},
        {u"/[d11/1/26,11-5-2026]", mdy, "2026-11-01 0 .. 2026-11-05 86399"},
        {u"/[d1.11.80,5.11.79]", dmy, "1980-11-01 0 .. 2079-11-05 86399"},
        {u"/[d5/11/2026, 1/11/2026]", dmy, "2026-11-01 0 .. 2026-11-05 86399"},
        {u"/[d-3]", mdy, "2026-11-18 0 .. 2026-11-21 37815"},
        {u"/[du-3]", mdy, "2026-11-18 0 .. 2026-11-21 30615"},
        {u"/[d+2]", mdy, "2026-11-21 37815 .. 2026-11-23 86399"},
        {u"/[d]", mdy, "2026-11-21 0 .. 2026-11-21 37815"},
        {u"/[d-3,]", mdy, "2026-11-18 0 .. 2026-11-21 37815"},
        {u"/[d-3,+1]", mdy, "2026-11-18 0 .. 2026-11-19 86399"},
        {u"/[d2026-11-10,-2]", mdy, "2026-11-08 0 .. 2026-11-10 86399"},
        {u"/[d2026-11-10@8:15,2026-11-10@9]", mdy, "2026-11-10 29700 .. 2026-11-10 32400"},
        {u"/[d2026-11-10@9:00p,2026-11-10@8am]", mdy, "2026-11-10 28800 .. 2026-11-10 75600"},
        {u"/[d2026-11-10@9,2026-11-01]", mdy, "2026-11-01 0 .. 2026-11-10 32400"},
        {u"/[d@9,@10:30]", mdy, "2026-11-21 32400 .. 2026-11-21 37800"},
        // 23:30 UTC is the next day in the zone.
        {u"/[d134389134000000000,+0]", mdy, "2026-11-12 0 .. 2026-11-12 86399"},
        {u"/[du134389134000000000,+0]", mdy, "2026-11-11 0 .. 2026-11-11 86399"},
    };
    ASSERT_EQ(At(2026, 11, 11, 23, 30), 134389134000000000u);
    for (const Row& row : rows) {
        CString arguments(row.text);
        RANGES ranges;
        ASSERT_EQ(Take(arguments, ranges, false, row.order), 0) << ToUtf8(CString(row.text));
        ASSERT_EQ(ranges.dates.size(), 1u);
        EXPECT_EQ(Shown(ranges.dates[0]), row.expected) << ToUtf8(CString(row.text));
    }
}

TEST(Ranges, TimesOfDayAreRead)
{
    struct Row {
        const char16_t* text;
        int from, to;
    };
    const Row rows[] = {
        {u"/[t8:00,17:30]", 28800, 63000}, {u"/[t8a,5:30:10p]", 28800, 63010},
        {u"/[t22-00,6.00]", 79200, 21600}, {u"/[t14:00]", 50400, 86399},
        {u"/[t-30]", 36015, 37815},        {u"/[t+30]", 37815, 39615},
        {u"/[tu-30]", 28815, 30615},       {u"/[t23:50,+20]", 85800, 600},
        {u"/[t12:00,-30]", 41400, 43200},  {u"/[tcu0:00,0:00]", 0, 0},
    };
    for (const Row& row : rows) {
        CString arguments(row.text);
        RANGES ranges;
        ASSERT_EQ(Take(arguments, ranges), 0) << ToUtf8(CString(row.text));
        ASSERT_EQ(ranges.times.size(), 1u);
        EXPECT_EQ(ranges.times[0].from, row.from) << ToUtf8(CString(row.text));
        EXPECT_EQ(ranges.times[0].to, row.to) << ToUtf8(CString(row.text));
    }
}

TEST(Ranges, SizesAreRead)
{
    struct Row {
        const char16_t* text;
        std::int64_t minimum, maximum;
    };
    const Row rows[] = {
        {u"/[s10]", 10, INT64_MAX},
        {u"/[s]", 0, INT64_MAX},
        {u"/[s,5]", 0, 5},
        {u"/[s1k,1K]", 1000, 1024},
        {u"/[s1b,2B]", 1, 2},
        {u"/[s1m,1M]", 1'000'000, 1'048'576},
        {u"/[s1g,1G]", 1'000'000'000, 1'073'741'824},
        {u"/[s1t,1T]", 1'000'000'000'000, 1'099'511'627'776},
        {u"/[sc1k,+24]", 1000, 1024},
        {u"/[s1k,-1k]", 0, 1000},
        {u"/[s10,-30]", -20, 10},
        {u"/[s1M,1k]", 1000, 1'048'576},
        {u"/[s99999999999999T,+1]", INT64_MAX, INT64_MAX},
    };
    for (const Row& row : rows) {
        CString arguments(row.text);
        RANGES ranges;
        ASSERT_EQ(Take(arguments, ranges), 0) << ToUtf8(CString(row.text));
        ASSERT_EQ(ranges.sizes.size(), 1u);
        EXPECT_EQ(ranges.sizes[0].minimum, row.minimum) << ToUtf8(CString(row.text));
        EXPECT_EQ(ranges.sizes[0].maximum, row.maximum) << ToUtf8(CString(row.text));
    }
}

TEST(Ranges, WhatIsWrongIsRefused)
{
    struct Row {
        const char16_t* text;
        int code;
    };
    const int badDate = static_cast<int>(errors::invalidDate);
    const int badTime = static_cast<int>(errors::invalidTime);
    const Row rows[] = {
        {u"/[dyesterday]", badDate},
        {u"/[d2026-02-29]", badDate},
        {u"/[d13/1/2026]", badDate},
        {u"/[d-1,x]", badDate},
        {u"/[d--1]", badDate},
        {u"/[d+9999999999]", badDate},
        {u"/[d999999999999999999999]", badDate},
        {u"/[d-1@]", badTime},
        {u"/[d-1@25:00]", badTime},
        {u"/[t]", badTime},
        {u"/[t24:00]", badTime},
        {u"/[t8:00,noon]", badTime},
        {u"/[t+x]", badTime},
        {u"/[s1p]", invalidParameter},
        {u"/[s1P]", invalidParameter},
        {u"/[s1kk]", invalidParameter},
        {u"/[s-1]", invalidParameter},
        {u"/[s1,+]", invalidParameter},
        {u"/[s1.5M]", invalidParameter},
        {u"/[q1]", invalidParameter},
        {u"/[]", invalidParameter},
        {u"/[o]", invalidParameter},
        {u"/[!::(]", invalidParameter},
        {u"/IR\"(\"", invalidParameter},
        {u"/[d-1", invalidParameter},
        {u"/I\"open", invalidParameter},
        {u"/[=]", static_cast<int>(errors::unbuiltDialog)},
    };
    for (const Row& row : rows) {
        CString arguments(row.text);
        RANGES ranges;
        EXPECT_EQ(Take(arguments, ranges), row.code) << ToUtf8(CString(row.text));
    }
    const CString longOwner = Format(u"/[o%s]", CString(256, u'x'));
    CString arguments = longOwner;
    RANGES ranges;
    EXPECT_EQ(Take(arguments, ranges), invalidParameter);
    arguments = Format(u"/I\"%s\"", CString(1024, u'x'));
    EXPECT_EQ(Take(arguments, ranges), invalidParameter);
}

TEST(Ranges, TheTextIsExpandedAndAFailureEndsTheReading)
{
    FakeClock clock;
    RangeReading reading{clock, Syntax(), DateOrder::MonthDayYear, RegexSyntax::Perl, nullptr};
    reading.expand = [](CString& text) {
        if (text.Find(u"%bad") != CString::npos)
            return 2;
        text = u"s7,9";
        return 0;
    };
    CString arguments(u"/[%size] x");
    RANGES ranges;
    EXPECT_EQ(TakeRanges(arguments, ranges, false, reading), 0);
    ASSERT_EQ(ranges.sizes.size(), 1u);
    EXPECT_EQ(ranges.sizes[0].minimum, 7);
    arguments = u"/[%bad] x";
    EXPECT_EQ(TakeRanges(arguments, ranges, false, reading), 2);
}

TEST(Ranges, FilesAreSelected)
{
    File file;
    file.facts.size = 2000;
    file.facts.written = At(2026, 11, 20, 23, 30);  // local 21 November, 01:30
    file.facts.accessed = At(2026, 11, 21, 6, 0);   // local 08:00
    file.facts.created = At(2020, 2, 29, 12, 0, 1); // local 14:00:01
    struct Row {
        const char16_t* range;
        bool selected;
    };
    const Row rows[] = {
        {u"/[d-0]", true},
        {u"/[du-0]", false},
        {u"/![d-0]", false},
        {u"/[dw2026-11-21,+0]", true},
        {u"/[dc2020-2-29,+0]", true},
        {u"/[da2020-2-29,+0]", false},
        {u"/[dc2020-2-29@14:00:01,2020-2-29@14:00:01]", true},
        {u"/[dc2020-2-29@14:00:02,2020-3-1]", false},
        {u"/[t1:30,1:30]", true},
        {u"/[t1:31,23:00]", false},
        {u"/[t22:00,2:00]", true},
        {u"/[t22:00,1:29]", false},
        {u"/[tu23:00,23:59]", true},
        {u"/[ta7:59,8:00]", true},
        {u"/![ta7:59,8:00]", false},
        {u"/[s2000,2000]", true},
        {u"/[s2001]", false},
        {u"/![s2001]", true},
        {u"/[s,1999]", false},
        {u"/[sc,100]", true},
        {u"/[sc101]", false},
        {u"/[oanna]", true},
        {u"/[o\"house\\anna\"]", true},
        {u"/[ohouse\\b*]", false},
        {u"/[oa*]", true},
        {u"/![oa*]", false},
        {u"/[!*.txt]", false},
        {u"/[!*.c *.h]", true},
        {u"/[!*.c;f?le.txt]", false},
        {u"/[!\"file.txt\"]", false},
        {u"/[![a-e]*]", true},
        {u"/[!*.c] /[!*.txt]", false},
        {u"/[!::f.*]", false},
        {u"/![!*.txt]", true},
        {u"/![!*.c]", false},
        {u"/I\"holiday*\"", true},
        {u"/I\"holiday\"", false},
        {u"/!I\"holiday\"", true},
        {u"/IR\"pict.re\"", true},
        {u"/!IR\"pict.re\"", false},
        {u"/[s1k] /[d-0] /[!*.c]", true},
        {u"/[s1k] /[d-0] /[!*.txt]", false},
        // Several of one kind hold together.
        {u"/[s1k] /[s,1900]", false},
    };
    for (const Row& row : rows)
        EXPECT_EQ(Selects(row.range, file), row.selected) << ToUtf8(CString(row.range));
}

TEST(Ranges, MomentsOfFileTimes)
{
    const DayMoment moment = MomentOfFileTime(At(2026, 11, 21, 10, 30, 15));
    EXPECT_EQ(moment.day, DaysFromDate({2026, 11, 21}));
    EXPECT_EQ(moment.second, 37815);
    EXPECT_EQ(MomentOfFileTime(0).day, DaysFromDate({1601, 1, 1}));
}
