#include "files/name_pattern.h"

#include "files/wildcards.h"

NamePattern::NamePattern(std::u16string_view patternList, RegexSyntax syntax) : pattern(patternList)
{
    if (patternList.starts_with(u"::"))
        regex.emplace(patternList.substr(2), syntax, RegexMatch::Whole);
    all = patternList == u"*" || patternList == u"*.*";
}

bool NamePattern::Matches(std::u16string_view name) const
{
    if (regex)
        return regex->Search(name);
    return all || WildcardComparisonEx(pattern, name, true, true) == 0;
}
