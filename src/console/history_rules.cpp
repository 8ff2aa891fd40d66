#include "console/history_rules.h"

#include <algorithm>

#include "files/wildcards.h"
#include "text/words.h"

namespace {

constexpr std::size_t longestPattern = 511; // units; what is longer is cut there

// The next pattern, quotes taken off, cut from the front of `patterns`; "" at their end.
CString TakePattern(std::u16string_view& patterns)
{
    constexpr std::u16string_view separators = u"; \t";
    patterns.remove_prefix(std::min(patterns.find_first_not_of(separators), patterns.size()));
    bool quoted = false;
    std::size_t end = 0;
    for (; end < patterns.size(); ++end) {
        if (patterns[end] == u'"')
            quoted = !quoted;
        else if (!quoted && separators.find(patterns[end]) != std::u16string_view::npos)
            break;
    }
    CString pattern = WithoutQuotes(patterns.substr(0, end));
    patterns.remove_prefix(end);
    return pattern.Truncate(std::min(pattern.size(), longestPattern));
}

bool IsExcluded(std::u16string_view line, std::u16string_view patterns, const Syntax& syntax)
{
    const CString name = WithoutQuotes(GetNthArgument(line, 0, syntax));
    while (!patterns.empty()) {
        const CString pattern = TakePattern(patterns);
        if (!pattern.empty() && WildcardComparison(pattern, name, true, true) == 0)
            return true;
    }
    return false;
}

} // namespace

bool IsKeptInHistory(std::u16string_view line, const HistoryRules& rules, const Syntax& syntax)
{
    if (line.empty() || line.size() < rules.shortest || line.size() + 2 > rules.listSize)
        return false;
    if (line.starts_with(u"@") || line.starts_with(u"*@"))
        return false;
    return rules.excluded.empty() || !IsExcluded(line, rules.excluded, syntax);
}
