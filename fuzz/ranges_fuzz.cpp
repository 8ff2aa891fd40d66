// Range switches from any argument text: whatever is accepted must be sound, and what is no range must stay.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "files/dates.h"
#include "files/ranges.h"

namespace {

class Clock : public RangeClock {
public:
    std::uint64_t Now() override { return 134'397'000'000'000'000; }
    std::uint64_t ToLocal(std::uint64_t fileTime) override { return fileTime + 36'000'000'000; }
};

class Questions : public RangeQuestions {
public:
    std::uint64_t CompressedSize() override { return 100; }
    CString Owner() override { return u"HOUSE\\Anna"; }
    CString Description() override { return u"Holiday"; }
};

void Require(bool sound)
{
    if (!sound)
        std::abort();
}

void RequireSound(const RANGES& ranges)
{
    constexpr int lastSecond = 86399;
    for (const DateRange& range : ranges.dates) {
        Require(range.from <= range.to && DateFromDays(range.from.day) && DateFromDays(range.to.day));
        Require(range.from.second >= 0 && range.from.second <= lastSecond);
        Require(range.to.second >= 0 && range.to.second <= lastSecond);
    }
    for (const TimeRange& range : ranges.times)
        Require(range.from >= 0 && range.from <= lastSecond && range.to >= 0 && range.to <= lastSecond);
    for (const SizeRange& range : ranges.sizes)
        Require(range.minimum <= range.maximum);
    for (const OwnerRange& range : ranges.owners)
        Require(!range.account.empty() && range.account.size() <= 255);
    for (const DescriptionRange& range : ranges.descriptions)
        Require(range.text.size() <= 1023);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size > 512)
        return 0;
    std::u16string text(data, data + size);
    Clock clock;
    Questions questions;
    for (const DateOrder order :
         {DateOrder::MonthDayYear, DateOrder::DayMonthYear, DateOrder::YearMonthDay}) {
        const RangeReading reading{clock, Syntax(), order, RegexSyntax::Perl, nullptr};
        CString arguments(text);
        RANGES ranges;
        const int code = TakeRanges(arguments, ranges, false, reading);
        Require(arguments.size() <= text.size());
        RequireSound(ranges);
        // Regular expressions may take their time.
        if (code == 0 && text.find(u"::") == std::u16string::npos &&
            text.find(u'"') == std::u16string::npos) {
            EntryFacts facts;
            facts.size = size;
            facts.written = UINT64_MAX / 2;
            IsInRanges(ranges, u"file.txt", facts, clock, questions);
            // A bracket that had no partner may find one in what stood behind a range.
            const std::u16string_view left = arguments;
            if (std::count(left.begin(), left.end(), u'[') != std::count(left.begin(), left.end(), u']'))
                continue;
            RANGES again;
            CString rest = arguments;
            Require(TakeRanges(rest, again, false, reading) == 0 && again.Empty());
        }
    }
    return 0;
}
