// Ranges: which files a command takes, by date, time of day, size, owner, name and description. Pure.
//
// A range is a switch of its own: /[d...] dates, /[t...] times of day, /[s...] sizes, /[o...] owner, /[!...]
// names to pass over; with "!" in front of the bracket, files inside the range are passed over. /I"text"
// takes files by their description, /IR"text" by a regular expression found in it, /!I and /!IR those that
// differ. docs/file-selection.md tells users the whole syntax.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "files/file_entry.h"
#include "files/name_pattern.h"
#include "platform/national.h"
#include "text/syntax.h"

enum class WhichTime { Written, Accessed, Created };

// A day number of files/dates.h and a second of that day.
struct DayMoment {
    std::int64_t day = 0;
    int second = 0;
    friend auto operator<=>(const DayMoment&, const DayMoment&) = default;
};

// Both ends belong to a range.
struct DateRange {
    DayMoment from;
    DayMoment to;
    WhichTime which = WhichTime::Written;
    bool utc = false;
    bool negated = false;
};

struct TimeRange {
    int from = 0; // second of the day
    int to = 0;   // below `from` when the range runs past midnight
    WhichTime which = WhichTime::Written;
    bool utc = false;
    bool negated = false;
};

struct SizeRange {
    std::int64_t minimum = 0;
    std::int64_t maximum = 0;
    bool compressed = false; // compare what the file takes on the disk
    bool negated = false;
};

struct OwnerRange {
    CString account; // wildcards; without "\" the domain does not matter
    bool negated = false;
};

struct DescriptionRange {
    CString text;                       // wildcards, matched against the whole description
    std::shared_ptr<const Regex> regex; // in place of the text
    bool negated = false;
};

using NamePatterns = std::vector<std::shared_ptr<const NamePattern>>;

// The ranges of one command. A file must be in all of them.
struct RANGES {
    std::vector<DateRange> dates;
    std::vector<TimeRange> times;
    std::vector<SizeRange> sizes;
    std::vector<OwnerRange> owners;
    std::vector<DescriptionRange> descriptions;
    NamePatterns excludedNames;
    NamePatterns onlyNames; // of negated exclusions: nothing else is taken

    bool Empty() const;
};

// The clock that ranges are told by.
class RangeClock {
public:
    virtual ~RangeClock() = default;
    virtual std::uint64_t Now() = 0; // a file time, UTC
    virtual std::uint64_t ToLocal(std::uint64_t fileTime) = 0;
};

// What the meaning of a range's text depends on.
struct RangeReading {
    RangeClock& clock;
    Syntax syntax;
    DateOrder dateOrder = DateOrder::MonthDayYear;
    RegexSyntax regexSyntax = RegexSyntax::Perl;
    // Replaces the variables in the text of a range; anything but 0 is an error that was reported.
    int (*expand)(CString& text) = nullptr;
};

// Takes every range out of a command's argument text. 0, an error code that is not reported (errors::
// invalidDate, invalidTime, unbuiltDialog, or 87 for an invalid parameter; the argument text is then the
// range that it is about), or what `expand` answered. `onlyLeading` stops at the first word that is no
// switch.
int TakeRanges(CString& arguments, RANGES& ranges, bool onlyLeading, const RangeReading& reading);

// Questions about one file that cost something, asked only when a range needs the answer.
class RangeQuestions {
public:
    virtual ~RangeQuestions() = default;
    virtual std::uint64_t CompressedSize() = 0;
    virtual CString Owner() = 0;       // "DOMAIN\name", "" when unknown
    virtual CString Description() = 0; // "" for none
};

bool IsInRanges(const RANGES& ranges, std::u16string_view name, const EntryFacts& facts, RangeClock& clock,
                RangeQuestions& questions);

// The day and second of a file time, in the zone that the time is told in.
DayMoment MomentOfFileTime(std::uint64_t fileTime);
