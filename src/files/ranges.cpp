#include "files/ranges.h"

#include <algorithm>

#include "files/dates.h"
#include "files/wildcards.h"
#include "text/compare.h"

namespace {

constexpr std::uint64_t ticksPerSecond = 10'000'000;
constexpr std::uint64_t secondsPerDay = 86400;
constexpr std::int64_t firstFileDay = -138426; // 1 January 1601 as a day number

std::uint64_t TimeOf(const EntryFacts& facts, WhichTime which)
{
    switch (which) {
    case WhichTime::Accessed: return facts.accessed;
    case WhichTime::Created: return facts.created;
    default: return facts.written;
    }
}

DayMoment MomentOf(const EntryFacts& facts, WhichTime which, bool utc, RangeClock& clock)
{
    const std::uint64_t time = TimeOf(facts, which);
    return MomentOfFileTime(utc ? time : clock.ToLocal(time));
}

bool Holds(const DateRange& range, const EntryFacts& facts, RangeClock& clock)
{
    const DayMoment moment = MomentOf(facts, range.which, range.utc, clock);
    return range.from <= moment && moment <= range.to;
}

bool Holds(const TimeRange& range, const EntryFacts& facts, RangeClock& clock)
{
    const int second = MomentOf(facts, range.which, range.utc, clock).second;
    if (range.from <= range.to)
        return range.from <= second && second <= range.to;
    return second >= range.from || second <= range.to;
}

bool Holds(const SizeRange& range, const EntryFacts& facts, RangeQuestions& questions)
{
    const std::uint64_t size = range.compressed ? questions.CompressedSize() : facts.size;
    const std::int64_t bytes = static_cast<std::int64_t>(std::min<std::uint64_t>(size, INT64_MAX));
    return range.minimum <= bytes && bytes <= range.maximum;
}

bool Holds(const OwnerRange& range, RangeQuestions& questions)
{
    const CString owner = questions.Owner();
    std::u16string_view account = owner;
    if (range.account.Find(u'\\') == CString::npos)
        account.remove_prefix(account.rfind(u'\\') + 1);
    return WildcardComparison(range.account, account, false, true) == 0;
}

bool Holds(const DescriptionRange& range, RangeQuestions& questions)
{
    const CString description = questions.Description();
    if (range.regex)
        return range.regex->Search(description);
    return WildcardComparison(range.text, description, false, true) == 0;
}

bool HoldName(const NamePatterns& patterns, std::u16string_view name)
{
    return std::any_of(patterns.begin(), patterns.end(),
                       [&](const auto& pattern) { return pattern->Matches(name); });
}

// Whether every range of one kind takes the file; `holds` answers for one of them.
template <typename Range, typename Test> bool AllHold(const std::vector<Range>& ranges, Test holds)
{
    return std::all_of(ranges.begin(), ranges.end(),
                       [&](const Range& range) { return holds(range) != range.negated; });
}

} // namespace

DayMoment MomentOfFileTime(std::uint64_t fileTime)
{
    const std::uint64_t seconds = fileTime / ticksPerSecond;
    return {firstFileDay + static_cast<std::int64_t>(seconds / secondsPerDay),
            static_cast<int>(seconds % secondsPerDay)};
}

bool RANGES::Empty() const
{
    return dates.empty() && times.empty() && sizes.empty() && owners.empty() && descriptions.empty() &&
           excludedNames.empty() && onlyNames.empty();
}

// The cheap questions come first.
bool IsInRanges(const RANGES& ranges, std::u16string_view name, const EntryFacts& facts, RangeClock& clock,
                RangeQuestions& questions)
{
    if (HoldName(ranges.excludedNames, name))
        return false;
    if (!ranges.onlyNames.empty() && !HoldName(ranges.onlyNames, name))
        return false;
    return AllHold(ranges.sizes, [&](const auto& range) { return Holds(range, facts, questions); }) &&
           AllHold(ranges.dates, [&](const auto& range) { return Holds(range, facts, clock); }) &&
           AllHold(ranges.times, [&](const auto& range) { return Holds(range, facts, clock); }) &&
           AllHold(ranges.descriptions, [&](const auto& range) { return Holds(range, questions); }) &&
           AllHold(ranges.owners, [&](const auto& range) { return Holds(range, questions); });
}
