#include "files/search_names.h"

#include "files/directory_name.h"
#include "text/compare.h"
#include "text/path_names.h"
#include "text/words.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;

// Where the name at the start of an include list ends.
std::size_t NameEnd(std::u16string_view list)
{
    bool quoted = false;
    for (std::size_t at = 0; at < list.size(); ++at) {
        if (list[at] == u'"')
            quoted = !quoted;
        else if (list[at] == u';' && !quoted)
            return at;
    }
    return list.size();
}

// Where the mark of a regular expression stands; npos for none.
std::size_t RegexStart(std::u16string_view name)
{
    for (std::size_t at = name.find(u"::"); at != npos; at = name.find(u"::", at + 1))
        if (at == 0 || IsPathSeparator(name[at - 1]))
            return at;
    return npos;
}

void Add(std::vector<SearchTarget>& targets, std::u16string_view directory, SearchName name)
{
    const bool same =
        !targets.empty() && (directory.empty() || EqualNoCase(targets.back().directory, directory));
    if (!same)
        targets.push_back({CString(directory), {}});
    targets.back().names.push_back(std::move(name));
}

} // namespace

bool SearchName::IsLiteral() const
{
    return !text.empty() && text.view().find_first_of(u"*?[]") == npos && text.back() != u'.' && !IsRegex() &&
           (quoted || text.view().find_first_of(u";=") == npos);
}

CString SearchName::Pattern() const
{
    if (text.empty())
        return u"*";
    if (!quoted || IsRegex())
        return text;
    CString pattern(u"\"");
    return pattern.Append(text).Append(u'"');
}

std::vector<SearchTarget> SplitSearchNames(std::u16string_view argument)
{
    std::vector<SearchTarget> targets;
    const CString whole = WithoutQuotes(argument);
    if (const std::size_t regex = RegexStart(whole); regex != npos) {
        const CString directory = CleanDirectoryName(whole.view().substr(0, regex));
        Add(targets, directory, {whole.Substr(regex), false});
        return targets;
    }
    while (!argument.empty()) {
        const std::u16string_view name = argument.substr(0, NameEnd(argument));
        argument.remove_prefix(std::min(name.size() + 1, argument.size()));
        const CString bare = WithoutQuotes(name);
        if (bare.empty())
            continue;
        const std::size_t start = FileNameStart(bare);
        Add(targets, CleanDirectoryName(bare.view().substr(0, start)),
            {bare.Substr(start), bare.size() != name.size()});
    }
    return targets;
}
