#include "files/directory_search.h"

#include <algorithm>

#include "files/wildcards.h"
#include "text/compare.h"
#include "text/path_names.h"

namespace {

// 0 for none, else the better the higher.
int Closeness(std::u16string_view component, std::u16string_view wanted, DirectoryMatch match)
{
    if (HasWildcards(wanted))
        return WildcardComparison(wanted, component, true, true) == 0 ? 3 : 0;
    if (EqualNoCase(component, wanted))
        return 3;
    if (match != DirectoryMatch::Exact && BeginsNoCase(component, wanted))
        return 2;
    return match == DirectoryMatch::Anywhere && FindNoCase(component, wanted) != component.npos ? 1 : 0;
}

std::u16string_view TakeLast(std::u16string_view& path)
{
    const std::size_t start = FileNameStart(path);
    const std::u16string_view last = path.substr(start);
    path = path.substr(0, start == 0 ? 0 : start - 1);
    return last;
}

// The least of the components' closeness.
int ClosenessOfPath(std::u16string_view directory, std::u16string_view name, DirectoryMatch match)
{
    int closeness = 3;
    while (!name.empty() && closeness > 0) {
        if (directory.empty())
            return 0;
        const std::u16string_view wanted = TakeLast(name);
        closeness = std::min(closeness, Closeness(TakeLast(directory), wanted, match));
    }
    return closeness;
}

} // namespace

std::vector<CString> MatchDirectories(const std::vector<CString>& directories, std::u16string_view name,
                                      DirectoryMatch match)
{
    while (!name.empty() && IsPathSeparator(name.front()))
        name.remove_prefix(1);
    while (!name.empty() && IsPathSeparator(name.back()))
        name.remove_suffix(1);
    std::vector<CString> found[3];
    if (!name.empty() && match != DirectoryMatch::None)
        for (const CString& directory : directories)
            if (const int closeness = ClosenessOfPath(directory, name, match))
                found[3 - closeness].push_back(directory);
    for (std::size_t i = 1; i < std::size(found); ++i)
        found[0].insert(found[0].end(), found[i].begin(), found[i].end());
    return std::move(found[0]);
}
