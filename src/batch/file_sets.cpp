#include "batch/file_sets.h"

#include <windows.h>

#include "engine/break.h"
#include "platform/file_facts.h"
#include "platform/handle.h"
#include "text/path_names.h"

namespace {

bool Wanted(const WIN32_FIND_DATAW& data, MatchKind kind)
{
    const bool directory = (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    const bool hidden = (data.dwFileAttributes & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM)) != 0;
    if (directory != (kind == MatchKind::Directories) || hidden)
        return false;
    const std::u16string_view name(reinterpret_cast<const char16_t*>(data.cFileName));
    return name != u"." && name != u"..";
}

} // namespace

void AppendMatches(std::u16string_view pattern, MatchKind kind, std::vector<CString>& names)
{
    const std::u16string_view directory = DirectoryPart(pattern);
    WIN32_FIND_DATAW data;
    const OwnedFindHandle found(FindFirstFileExW(SystemPath(pattern).w(), FindExInfoBasic, &data,
                                                 FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH));
    if (!found)
        return;
    do {
        ThrowIfBroken();
        if (Wanted(data, kind))
            names.push_back(CString(directory).Append(reinterpret_cast<const char16_t*>(data.cFileName)));
    } while (FindNextFileW(found.Get(), &data));
}

bool WalkDirectories(const CString& directory, const std::function<bool(const CString&)>& visit)
{
    // Kept as a list, not as a recursion: the depth of a tree is not ours to choose.
    std::vector<CString> waiting = {directory};
    while (!waiting.empty()) {
        const CString current = waiting.back();
        waiting.pop_back();
        if (!visit(current))
            return false;
        std::vector<CString> below;
        AppendMatches(current + u"*", MatchKind::Directories, below);
        for (auto name = below.rbegin(); name != below.rend(); ++name)
            waiting.push_back(name->Append(u'\\'));
    }
    return true;
}
