#include "batch/file_sets.h"

#include "files/file_search.h"
#include "text/format.h"

namespace {

AttributeMasks MasksOf(MatchKind kind)
{
    AttributeMasks masks;
    (kind == MatchKind::Directories ? masks.required : masks.forbidden) = file_attribute::directory;
    return masks;
}

} // namespace

void AppendMatches(std::u16string_view pattern, MatchKind kind, std::vector<CString>& names)
{
    FILESEARCH search;
    search.attributes = MasksOf(kind);
    for (bool found = FindFiles(search, pattern); found; found = FindFiles(search))
        names.push_back(search.name);
}

bool WalkDirectories(std::u16string_view directory, const std::function<bool(const CString&)>& visit)
{
    FILESEARCH search;
    search.attributes = MasksOf(MatchKind::Directories);
    search.deepest = allLevels;
    SearchedDirectory reached;
    for (StartSearch(search, Format(u"\"%s*\"", directory)); NextDirectory(search, reached);)
        if (!visit(reached.found.name))
            return false;
    return true;
}
