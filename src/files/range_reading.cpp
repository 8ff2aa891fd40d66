// Reading ranges out of a command's arguments; files/ranges.h.

#include <algorithm>
#include <optional>

#include "files/dates.h"
#include "files/ranges.h"
#include "lang/errors.h"
#include "text/compare.h"
#include "text/numbers.h"
#include "text/scanner.h"
#include "text/size_units.h"
#include "text/switches.h"
#include "text/words.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;
constexpr int invalidParameter = 87; // the system's own code
constexpr int invalidDate = static_cast<int>(errors::invalidDate);
constexpr int invalidTime = static_cast<int>(errors::invalidTime);

constexpr int secondsPerDay = 86400;
constexpr int lastSecond = secondsPerDay - 1;
constexpr std::size_t longestOwner = 255;
constexpr std::size_t longestDescription = 1023;
constexpr std::int64_t leastFileTime = 1'000'000'000; // a smaller number is a date

std::u16string_view Trimmed(std::u16string_view text)
{
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

// The two sides of a range's comma. A comma with nothing behind it counts as none.
struct Ends {
    std::u16string_view first;
    std::optional<std::u16string_view> second;

    explicit Ends(std::u16string_view text)
    {
        const std::size_t comma = text.find(u',');
        first = Trimmed(text.substr(0, comma));
        const std::u16string_view rest = comma == npos ? text.substr(0, 0) : Trimmed(text.substr(comma + 1));
        if (!rest.empty())
            second = rest;
    }
};

bool TakeLetter(std::u16string_view& text, char16_t letter)
{
    if (text.empty() || UpperCase(text.front()) != letter)
        return false;
    text.remove_prefix(1);
    return true;
}

// The letters that say which time of a file counts, and in which zone.
template <typename Range> void TakeTimeLetters(std::u16string_view& text, Range& range)
{
    if (TakeLetter(text, u'A'))
        range.which = WhichTime::Accessed;
    else if (TakeLetter(text, u'C'))
        range.which = WhichTime::Created;
    else
        TakeLetter(text, u'W');
    range.utc = TakeLetter(text, u'U');
}

bool IsSigned(std::u16string_view text)
{
    return !text.empty() && (text.front() == u'+' || text.front() == u'-');
}

std::optional<int> SecondOf(std::u16string_view text)
{
    const std::optional<TimeOfDay> time = ParseTime(text);
    if (!time)
        return std::nullopt;
    return time->hour * 3600 + time->minute * 60 + time->second;
}

// A number of minutes with its sign, as seconds; whole days are dropped.
std::optional<int> RelativeSeconds(std::u16string_view text)
{
    std::size_t used = 0;
    const std::optional<std::int64_t> minutes = ReadDecimal(text, &used);
    if (!minutes || used != text.size())
        return std::nullopt;
    return static_cast<int>(*minutes % (secondsPerDay / 60)) * 60;
}

int WithinDay(int second) { return ((second % secondsPerDay) + secondsPerDay) % secondsPerDay; }

// One size, "10", "4k" or "4K"; the only place where the letter case of a switch counts.
std::optional<std::int64_t> ReadSize(std::u16string_view text)
{
    if (text.empty() || !IsDigit(text.front()))
        return std::nullopt;
    std::size_t used = 0;
    const std::int64_t number = ReadDecimal(text, &used).value_or(0);
    const std::u16string_view letter = text.substr(used);
    if (letter.empty())
        return number;
    if (letter.size() != 1)
        return std::nullopt;
    const auto unit = UnitBytes(letter.front());
    if (!unit || UpperCase(letter.front()) == u'P') // ranges have never known petabytes
        return std::nullopt;
    return number > INT64_MAX / *unit ? INT64_MAX : number * *unit;
}

class RangeReader {
public:
    RangeReader(RANGES& target, const RangeReading& how) : ranges(target), reading(how) {}

    // The text between the brackets.
    int Read(std::u16string_view text, bool isNegated)
    {
        negated = isNegated;
        text = Trimmed(text);
        const char16_t kind = text.empty() ? u'\0' : UpperCase(text.front());
        if (!text.empty())
            text.remove_prefix(1);
        switch (kind) {
        case u'D': return ReadDates(text);
        case u'T': return ReadTimes(text);
        case u'S': return ReadSizes(text);
        case u'O': return ReadOwner(text);
        case u'!': return ReadNames(text);
        case u'=': return static_cast<int>(errors::unbuiltDialog);
        default: return invalidParameter;
        }
    }

    int ReadDescription(std::u16string_view text, bool isRegex, bool isNegated)
    {
        if (text.size() > longestDescription)
            return invalidParameter;
        DescriptionRange range{CString(text), nullptr, isNegated};
        if (isRegex) {
            auto regex = std::make_shared<Regex>(text, reading.regexSyntax, RegexMatch::Anywhere);
            if (!regex->IsValid())
                return invalidParameter;
            range.regex = std::move(regex);
        }
        ranges.descriptions.push_back(std::move(range));
        return 0;
    }

private:
    // An end of a date range; without a time of day it is the whole day.
    struct DateEnd {
        std::int64_t day = 0;
        std::optional<int> second;
    };

    DayMoment Now(bool utc) const
    {
        const std::uint64_t now = reading.clock.Now();
        return MomentOfFileTime(utc ? now : reading.clock.ToLocal(now));
    }

    // `base` is the day that signed numbers count from and that a missing date means.
    int ReadDateEnd(std::u16string_view text, std::int64_t base, bool utc, DateEnd& end) const
    {
        const std::size_t at = text.find(u'@');
        if (at != npos) {
            end.second = SecondOf(text.substr(at + 1));
            if (!end.second)
                return invalidTime;
        }
        const std::u16string_view date = Trimmed(text.substr(0, at));
        end.day = base;
        if (date.empty())
            return 0;
        const std::optional<std::int64_t> number = IsDigit(date.front()) ? ParseDecimal(date) : std::nullopt;
        if (!number || *number < leastFileTime)
            return MakeDaysFromDate(end.day, date, reading.dateOrder, base);
        const std::uint64_t fileTime = static_cast<std::uint64_t>(*number);
        end.day = MomentOfFileTime(utc ? fileTime : reading.clock.ToLocal(fileTime)).day;
        return DateFromDays(end.day) ? 0 : invalidDate;
    }

    static std::optional<std::int64_t> ParseDecimal(std::u16string_view text)
    {
        std::size_t used = 0;
        const std::optional<std::int64_t> number = ReadDecimal(text, &used);
        return used == text.size() ? number : std::nullopt;
    }

    int ReadDates(std::u16string_view text)
    {
        DateRange range;
        range.negated = negated;
        TakeTimeLetters(text, range);
        const Ends ends(text);
        const DayMoment now = Now(range.utc);
        DateEnd from;
        DateEnd to{now.day, now.second};
        if (const int code = ReadDateEnd(ends.first, now.day, range.utc, from))
            return code;
        if (ends.second) {
            to.second.reset();
            if (const int code = ReadDateEnd(*ends.second, from.day, range.utc, to))
                return code;
        }
        const bool reversed = from.day > to.day || (from.day == to.day &&
                                                    from.second.value_or(0) > to.second.value_or(lastSecond));
        if (reversed)
            std::swap(from, to);
        range.from = {from.day, from.second.value_or(0)};
        range.to = {to.day, to.second.value_or(lastSecond)};
        ranges.dates.push_back(range);
        return 0;
    }

    int ReadTimes(std::u16string_view text)
    {
        TimeRange range;
        range.negated = negated;
        TakeTimeLetters(text, range);
        const Ends ends(text);
        const int now = Now(range.utc).second;
        const std::optional<int> first =
            IsSigned(ends.first) ? RelativeSeconds(ends.first) : SecondOf(ends.first);
        if (!first)
            return invalidTime;
        range.from = IsSigned(ends.first) ? WithinDay(now + *first) : *first;
        if (!ends.second) {
            // "The last hour" ends now; "from two o'clock" has the rest of the day.
            range.to = IsSigned(ends.first) ? now : lastSecond;
            if (IsSigned(ends.first) && *first > 0)
                std::swap(range.from, range.to);
        } else if (IsSigned(*ends.second)) {
            const std::optional<int> length = RelativeSeconds(*ends.second);
            if (!length)
                return invalidTime;
            range.to = WithinDay(range.from + *length);
            if (*length < 0)
                std::swap(range.from, range.to);
        } else {
            const std::optional<int> last = SecondOf(*ends.second);
            if (!last)
                return invalidTime;
            range.to = *last;
        }
        ranges.times.push_back(range);
        return 0;
    }

    int ReadSizes(std::u16string_view text)
    {
        SizeRange range;
        range.negated = negated;
        range.compressed = TakeLetter(text, u'C');
        const Ends ends(text);
        const std::optional<std::int64_t> first = ends.first.empty() ? 0 : ReadSize(ends.first);
        if (!first)
            return invalidParameter;
        range.minimum = *first;
        range.maximum = INT64_MAX;
        if (ends.second) {
            const bool relative = IsSigned(*ends.second);
            const std::optional<std::int64_t> second = ReadSize(ends.second->substr(relative ? 1 : 0));
            if (!second)
                return invalidParameter;
            range.maximum = *second;
            if (relative && ends.second->front() == u'-')
                range.maximum = range.minimum - *second;
            else if (relative)
                range.maximum = *second > INT64_MAX - range.minimum ? INT64_MAX : range.minimum + *second;
            if (range.maximum < range.minimum)
                std::swap(range.minimum, range.maximum);
        }
        ranges.sizes.push_back(range);
        return 0;
    }

    int ReadOwner(std::u16string_view text)
    {
        const CString account = WithoutOuterQuotes(Trimmed(text));
        if (account.empty() || account.size() > longestOwner)
            return invalidParameter;
        ranges.owners.push_back({account, negated});
        return 0;
    }

    int ReadNames(std::u16string_view text)
    {
        NamePatterns& patterns = negated ? ranges.onlyNames : ranges.excludedNames;
        for (const CString& name : SplitArguments(text, true, reading.syntax)) {
            auto pattern = std::make_shared<NamePattern>(
                name.view().starts_with(u"\"::") ? WithoutOuterQuotes(name) : name, reading.regexSyntax);
            if (!pattern->IsValid())
                return invalidParameter;
            patterns.push_back(std::move(pattern));
        }
        return 0;
    }

    RANGES& ranges;
    const RangeReading& reading;
    bool negated = false;
};

// A range in the argument text, from its switch character on.
struct RangePlace {
    std::size_t start = 0;
    std::size_t length = 0; // 0: no range here
    std::size_t textStart = 0;
    std::size_t textLength = 0;
    bool negated = false;
    bool description = false;
    bool regex = false;
    bool unclosed = false;
};

// Whether a range begins at the switch character `at`.
RangePlace RangeAt(std::u16string_view text, std::size_t at, const Syntax& syntax)
{
    RangePlace place;
    place.start = at++;
    if (at < text.size() && text[at] == u'!') {
        place.negated = true;
        ++at;
    }
    if (at >= text.size())
        return place;
    std::size_t end = npos;
    if (text[at] == u'[') {
        // Sets among excluded names have brackets of their own.
        end = FindClosing(text, at, quotes::both, syntax);
        end = end == npos ? text.find(u']', at) : end;
    } else if (UpperCase(text[at]) == u'I') {
        ++at;
        if (at < text.size() && UpperCase(text[at]) == u'R') {
            place.regex = true;
            ++at;
        }
        if (at >= text.size() || text[at] != u'"')
            return place;
        place.description = true;
        end = text.find(u'"', at + 1);
    } else {
        return place;
    }
    place.unclosed = end == npos;
    end = std::min(end, text.size());
    place.textStart = at + 1;
    place.textLength = end - place.textStart;
    place.length = std::min(end + 1, text.size()) - place.start;
    return place;
}

// The first range among the switches of a word.
RangePlace RangeInWord(std::u16string_view text, const Word& word, const Syntax& syntax)
{
    bool quoted = false;
    for (std::size_t at = word.start; at < word.end(); ++at) {
        quoted = quoted != (text[at] == u'"');
        if (quoted || text[at] != syntax.switchChar)
            continue;
        const RangePlace place = RangeAt(text, at, syntax);
        if (place.length > 0)
            return place;
    }
    return {};
}

} // namespace

int TakeRanges(CString& arguments, RANGES& ranges, bool onlyLeading, const RangeReading& reading)
{
    const Syntax& syntax = reading.syntax;
    const CString endMark(3, syntax.switchChar);
    RangeReader reader(ranges, reading);
    for (std::size_t from = 0;;) {
        const Word word = NextWord(arguments, from, syntax);
        const bool isSwitch = word.length > 0 && arguments[word.start] == syntax.switchChar;
        if (word.length == 0 || arguments.view().substr(word.start, word.length) == endMark.view() ||
            (onlyLeading && !isSwitch))
            return 0;
        const RangePlace place = isSwitch ? RangeInWord(arguments, word, syntax) : RangePlace();
        if (place.length == 0) {
            from = word.end();
            continue;
        }
        CString text = arguments.Substr(place.textStart, place.textLength);
        if (const int code = reading.expand ? reading.expand(text) : 0)
            return code;
        const int code = place.unclosed      ? invalidParameter
                         : place.description ? reader.ReadDescription(text, place.regex, place.negated)
                                             : reader.Read(text, place.negated);
        if (code != 0) {
            arguments = arguments.Substr(place.start, place.length);
            return code;
        }
        CutSwitch(arguments, place.start, place.length);
        from = word.start;
    }
}
