#include "files/wildcards.h"

#include <algorithm>
#include <string>
#include <vector>

#include "text/compare.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;

constexpr bool IsWildcard(char16_t unit) noexcept { return unit == u'*' || unit == u'?'; }

bool SameLetter(char16_t a, char16_t b) noexcept { return a == b || UpperCase(a) == UpperCase(b); }

// The place of the "]" of the set that opens at `open`; npos when it is never closed: then "[" is an ordinary
// character.
std::size_t SetEnd(std::u16string_view pattern, std::size_t open) { return pattern.find(u']', open + 1); }

// Where one pattern of a list ends: at the first ";" or "=" outside quotes and sets, or at the end of the
// text.
std::size_t PatternEnd(std::u16string_view pattern, bool sets)
{
    bool quoted = false;
    for (std::size_t at = 0; at < pattern.size(); ++at) {
        const char16_t unit = pattern[at];
        if (unit == u'"') {
            quoted = !quoted;
        } else if (unit == u'[' && sets) {
            const std::size_t end = SetEnd(pattern, at);
            at = end == npos ? at : end;
        } else if (!quoted && (unit == u';' || unit == u'=')) {
            return at;
        }
    }
    return pattern.size();
}

// Whether the set between the brackets holds the unit.
bool IsInSet(std::u16string_view set, char16_t unit)
{
    const bool negated = !set.empty() && (set[0] == u'!' || set[0] == u'^');
    if (negated)
        set.remove_prefix(1);
    const char16_t letter = UpperCase(unit);
    for (std::size_t at = 0; at < set.size(); ++at) {
        const char16_t low = UpperCase(set[at]);
        const bool range = at + 2 < set.size() && set[at + 1] == u'-';
        const char16_t high = range ? UpperCase(set[at + 2]) : low;
        if (set[at] == u'?' || (low <= letter && letter <= high))
            return !negated;
        if (range)
            at += 2;
    }
    return negated;
}

// One pattern without quotes and list separators against one name.
//
// As a rule only the last "*" passed is ever tried again: every earlier one has reached its follower at the
// earliest place possible, and starting it later can only leave less of the name to the rest of the pattern.
// That does not hold where a "?" may meet a period, for then it passes over a "*" behind it: there earlier
// ones are tried as well, each from no place twice.
class Matcher {
public:
    Matcher(std::u16string_view cleanPattern, std::u16string_view fileName, bool useDotRules, bool useSets)
        : pattern(cleanPattern), name(fileName), dotRules(useDotRules), sets(useSets)
    {
        if (dotRules && !pattern.starts_with(u'[') && (name == u"." || name == u".."))
            name = {};
        hasExtension = name.find(u'.') != npos;
        if (dotRules && hasExtension && pattern.find(u'?') != npos)
            failedFrom.assign(pattern.size() + 1, npos);
    }

    bool Run()
    {
        for (;;) {
            bool goesOn = true;
            if (p < pattern.size() && pattern[p] == u'*') {
                goesOn = PassStar();
                if (p == pattern.size())
                    return true;
            } else if (!Step()) {
                if (n == name.size() && RestMatchesNothing())
                    return true;
                goesOn = false;
            }
            if (!goesOn && !Retry())
                return false;
        }
    }

private:
    // A "*" that was passed: the rest of the pattern behind it was tried from `first` up to `name`.
    struct Star {
        std::size_t pattern = npos; // npos: nothing is to be tried again
        std::size_t first = 0;
        std::size_t name = 0;
    };

    bool TriesEarlierStars() const { return !failedFrom.empty(); }

    // False when the rest is known to match from nowhere here.
    bool PassStar()
    {
        PassWildcards();
        if (TriesEarlierStars()) {
            if (n >= failedFrom[p])
                return false;
            earlier.push_back(star);
        }
        star = {p, n, n};
        if (dotRules && RestIsExtension()) {
            const std::size_t period = name.rfind(u'.');
            n = period == npos || period < n ? name.size() : period;
            star.pattern = npos;
        }
        return true;
    }

    void PassWildcards()
    {
        while (p < pattern.size() && IsWildcard(pattern[p]))
            ++p;
    }

    // The rest is a period and text that holds neither another one nor a "*".
    bool RestIsExtension() const
    {
        return p < pattern.size() && pattern[p] == u'.' && pattern.find_first_of(u".*", p + 1) == npos;
    }

    // One element of the pattern that is no "*"; false when the name does not continue with it.
    bool Step()
    {
        if (p == pattern.size())
            return false;
        switch (pattern[p]) {
        case u'?': StepQuestionMark(); return true;
        case u'[':
            if (const std::size_t end = sets ? SetEnd(pattern, p) : npos; end != npos)
                return StepSet(end);
            break;
        default: break;
        }
        if (n == name.size() || !SameLetter(pattern[p], name[n]))
            return false;
        ++p, ++n;
        return true;
    }

    void StepQuestionMark()
    {
        ++p;
        if (n == name.size())
            return;
        if (dotRules && name[n] == u'.') {
            PassWildcards();
            if (p < pattern.size() && pattern[p] == u'.')
                ++p;
        }
        ++n;
    }

    bool StepSet(std::size_t end)
    {
        const std::u16string_view set = pattern.substr(p + 1, end - p - 1);
        if (n == name.size() ? !set.empty() : !IsInSet(set, name[n]))
            return false;
        n += n == name.size() ? 0 : 1;
        p = end + 1;
        return true;
    }

    // What is left of the pattern when the name is used up: nothing; with the dot rules and a name without
    // extension also a trailing period, or a period and wildcards.
    bool RestMatchesNothing() const
    {
        const std::u16string_view rest = pattern.substr(p);
        if (rest.empty())
            return true;
        if (!dotRules || hasExtension || rest[0] != u'.')
            return false;
        return rest.find_first_not_of(u'.') == npos || std::all_of(rest.begin() + 1, rest.end(), IsWildcard);
    }

    // Goes back to the last "*" and lets it take more of the name.
    bool Retry()
    {
        while (star.pattern == npos || !Lengthen()) {
            if (earlier.empty())
                return false;
            if (star.pattern != npos)
                failedFrom[star.pattern] = std::min(failedFrom[star.pattern], star.first);
            star = earlier.back();
            earlier.pop_back();
        }
        p = star.pattern;
        n = star.name;
        return true;
    }

    // To the next place from which the rest might match; false when there is none.
    bool Lengthen()
    {
        if (star.name == name.size())
            return false;
        ++star.name;
        if (const char16_t follower = pattern[star.pattern]; follower != u'?' && follower != u'[')
            star.name = FindLetter(follower, star.name);
        return !TriesEarlierStars() || star.name < failedFrom[star.pattern];
    }

    // The place of the letter in the name at or after `from`, else the name's end.
    std::size_t FindLetter(char16_t letter, std::size_t from) const
    {
        const char16_t upper = UpperCase(letter);
        const char16_t lower = LowerCase(letter);
        const auto isSame = [=](char16_t unit) {
            return unit == lower || unit == upper || (unit >= 0x80 && UpperCase(unit) == upper);
        };
        return std::find_if(name.begin() + from, name.end(), isSame) - name.begin();
    }

    std::u16string_view pattern;
    std::u16string_view name;
    bool dotRules;
    bool sets;
    bool hasExtension = false;
    std::size_t p = 0;
    std::size_t n = 0;
    Star star;
    std::vector<Star> earlier;
    std::vector<std::size_t>
        failedFrom; // by the place in the pattern: the rest matches nowhere from there on
};

bool MatchesRegex(std::u16string_view expression, std::u16string_view name, RegexSyntax syntax, int& result)
{
    if (expression.starts_with(u"\"::")) { // quoted, because it holds blanks
        expression.remove_prefix(1);
        expression.remove_suffix(expression.ends_with(u'"') ? 1 : 0);
    }
    if (!expression.starts_with(u"::"))
        return false;
    const Regex regex(expression.substr(2), syntax, RegexMatch::Whole);
    result = !regex.IsValid() ? -1 : regex.Search(name) ? 0 : 1;
    return true;
}

int ComparePlain(std::u16string_view pattern, std::u16string_view name, bool dotRules, bool sets)
{
    std::u16string withoutQuotes;
    if (pattern.find(u'"') != npos) {
        std::remove_copy(pattern.begin(), pattern.end(), std::back_inserter(withoutQuotes), u'"');
        pattern = withoutQuotes;
    }
    return Matcher(pattern, name, dotRules, sets).Run() ? 0 : 1;
}

} // namespace

int WildcardComparison(std::u16string_view pattern, std::u16string_view name, bool dotRules, bool allowSets,
                       RegexSyntax regexSyntax)
{
    int result = 1;
    if (MatchesRegex(pattern, name, regexSyntax, result))
        return result;
    return ComparePlain(pattern.substr(0, PatternEnd(pattern, allowSets)), name, dotRules, allowSets);
}

int WildcardComparisonEx(std::u16string_view patterns, std::u16string_view name, bool dotRules,
                         bool allowSets, RegexSyntax regexSyntax)
{
    int result = 1;
    if (MatchesRegex(patterns, name, regexSyntax, result))
        return result;
    while (!patterns.empty()) {
        const std::size_t end = PatternEnd(patterns, allowSets);
        if (end > 0 && ComparePlain(patterns.substr(0, end), name, dotRules, allowSets) == 0)
            return 0;
        if (end == patterns.size() || patterns[end] == u'=')
            break;
        patterns.remove_prefix(end + 1);
    }
    return 1;
}
