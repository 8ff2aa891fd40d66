// Wildcards against a matcher that tries everything: the fast one must agree with it on every pattern.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>
#include <utility>

#include "files/wildcards.h"
#include "text/compare.h"

namespace {

constexpr std::size_t npos = std::u16string::npos;

// The rules as they are told, one decision after the other, with every way out of a "*" tried.
class PatientMatcher {
public:
    PatientMatcher(std::u16string p, std::u16string n, bool rules, bool allowSets)
        : pattern(std::move(p)), name(std::move(n)), dotRules(rules), sets(allowSets)
    {
        if (dotRules && (pattern.empty() || pattern[0] != u'[') && (name == u"." || name == u".."))
            name.clear();
    }

    bool Matches(std::size_t p, std::size_t n)
    {
        const auto known = seen.find({p, n});
        if (known != seen.end())
            return known->second;
        return seen[{p, n}] = Decide(p, n);
    }

private:
    bool Decide(std::size_t p, std::size_t n)
    {
        if (p == pattern.size())
            return n == name.size();
        if (pattern[p] == u'*')
            return DecideStar(p, n);
        if (n == name.size() && dotRules && name.find(u'.') == npos && pattern[p] == u'.') {
            const std::u16string rest = pattern.substr(p);
            if (rest.find_first_not_of(u'.') == npos || rest.find_first_not_of(u"*?", 1) == npos)
                return true;
        }
        if (pattern[p] == u'?') {
            if (n < name.size() && name[n] == u'.' && dotRules) {
                for (++p; p < pattern.size() && (pattern[p] == u'?' || pattern[p] == u'*');)
                    ++p;
                if (p < pattern.size() && pattern[p] == u'.')
                    ++p;
                return Matches(p, n + 1);
            }
            return Matches(p + 1, n == name.size() ? n : n + 1);
        }
        const std::size_t close = sets && pattern[p] == u'[' ? pattern.find(u']', p) : npos;
        if (close != npos) {
            if (n == name.size())
                return close == p + 1 && Matches(close + 1, n);
            return SetHolds(pattern.substr(p + 1, close - p - 1), name[n]) && Matches(close + 1, n + 1);
        }
        return n < name.size() && UpperCase(name[n]) == UpperCase(pattern[p]) && Matches(p + 1, n + 1);
    }

    bool DecideStar(std::size_t p, std::size_t n)
    {
        while (p < pattern.size() && (pattern[p] == u'*' || pattern[p] == u'?'))
            ++p;
        if (dotRules && p < pattern.size() && pattern[p] == u'.' &&
            pattern.find_first_of(u".*", p + 1) == npos) {
            const std::size_t period = name.rfind(u'.');
            return Matches(p, period != npos && period >= n ? period : name.size());
        }
        for (; n <= name.size(); ++n)
            if (Matches(p, n))
                return true;
        return false;
    }

    static bool SetHolds(const std::u16string& set, char16_t unit)
    {
        const bool negated = !set.empty() && (set[0] == u'!' || set[0] == u'^');
        bool holds = false;
        for (std::size_t i = negated ? 1 : 0; i < set.size(); ++i) {
            if (i + 2 < set.size() && set[i + 1] == u'-' && set[i] != u'?') {
                holds = holds ||
                        (UpperCase(set[i]) <= UpperCase(unit) && UpperCase(unit) <= UpperCase(set[i + 2]));
                i += 2;
            } else {
                holds = holds || set[i] == u'?' || UpperCase(set[i]) == UpperCase(unit);
            }
        }
        return holds != negated;
    }

    std::u16string pattern;
    std::u16string name;
    bool dotRules;
    bool sets;
    std::map<std::pair<std::size_t, std::size_t>, bool> seen;
};

} // namespace

// One byte of options, then pattern, a line feed, and the name. Bytes become a small alphabet, so that
// wildcards, periods and brackets are frequent.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 2 || size > 64)
        return 0;
    constexpr char16_t alphabet[] = u"*?.[]!-abAB^ *?.";
    const bool dotRules = (data[0] & 1) != 0;
    const bool sets = (data[0] & 2) != 0;
    std::u16string pattern;
    std::u16string name;
    bool inName = false;
    for (std::size_t i = 1; i < size; ++i) {
        if (data[i] == '\n' && !inName)
            inName = true;
        else
            (inName ? name : pattern).push_back(alphabet[data[i] % 16]);
    }
    const bool fast = WildcardComparison(pattern, name, dotRules, sets) == 0;
    if (fast != PatientMatcher(pattern, name, dotRules, sets).Matches(0, 0))
        std::abort();
    // Any units at all, as a list; regular expressions may take their time, and are left out.
    std::u16string list(size / 2, u'\0');
    std::memcpy(list.data(), data, list.size() * sizeof(char16_t));
    if (!list.starts_with(u"::"))
        WildcardComparisonEx(list, name, dotRules, sets);
    return 0;
}
