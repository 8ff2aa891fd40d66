#include "core/search_order.h"

#include <algorithm>
#include <utility>

#include "files/wildcards.h"
#include "text/compare.h"
#include "text/path_names.h"
#include "text/words.h"

namespace {

// The place of an extension among the extensions, or their number when it is none of them.
std::size_t RankOf(std::u16string_view extension, const std::vector<CString>& extensions)
{
    const auto found = std::find_if(extensions.begin(), extensions.end(), [&](const CString& pattern) {
        return EqualNoCase(pattern, extension) ||
               (HasWildcards(pattern) && WildcardComparison(pattern, extension, false, true) == 0);
    });
    return static_cast<std::size_t>(found - extensions.begin());
}

class Search {
public:
    Search(CString bareName, const SearchPlaces& searchPlaces, SearchWorld& searchWorld, bool first)
        : name(std::move(bareName)), places(searchPlaces), world(searchWorld), onlyFirst(first)
    {}

    std::vector<CString> Run()
    {
        const std::u16string_view fileName = FileNamePart(name);
        if (fileName.empty() || fileName == u"." || fileName == u"..")
            return {};
        if (HasDirectory(name)) {
            const CString full = world.FullName(name);
            LookInto(DirectoryPart(full), FileNamePart(full));
            return std::move(found);
        }
        if (!places.currentDirectory.empty() && LookInto(places.currentDirectory, name))
            return std::move(found);
        for (const CString& folder : SplitPathList(places.list)) {
            const CString full = IsAbsolutePath(folder) ? folder : world.FullName(folder);
            if (LookInto(full, name))
                break;
        }
        return std::move(found);
    }

private:
    // True when the search is over.
    bool LookInto(std::u16string_view folder, std::u16string_view fileName)
    {
        const std::u16string_view extension = ExtensionPart(fileName);
        if (!extension.empty()) {
            CString path = JoinPath(folder, fileName);
            if (world.IsFile(path) && Take(std::move(path)))
                return true;
            if (RankOf(extension, places.extensions) < places.extensions.size())
                return false;
        }
        return LookByStem(folder, fileName);
    }

    bool LookByStem(std::u16string_view folder, std::u16string_view stem)
    {
        std::vector<CString> names;
        world.FindByStem(folder, stem, names);
        std::vector<std::pair<std::size_t, CString>> ranked;
        for (const CString& candidate : names) {
            // The system's own matching takes short names and odd characters for matches too.
            if (candidate.size() <= stem.size() || !BeginsNoCase(candidate, stem))
                continue;
            const std::size_t rank = RankOf(candidate.view().substr(stem.size()), places.extensions);
            if (rank < places.extensions.size())
                ranked.emplace_back(rank, candidate);
        }
        std::stable_sort(ranked.begin(), ranked.end(),
                         [](const auto& a, const auto& b) { return a.first < b.first; });
        return std::any_of(ranked.begin(), ranked.end(),
                           [&](const auto& entry) { return Take(JoinPath(folder, entry.second)); });
    }

    bool Take(CString path)
    {
        const bool known = std::any_of(found.begin(), found.end(),
                                       [&](const CString& other) { return EqualNoCase(other, path); });
        if (!known)
            found.push_back(std::move(path));
        return onlyFirst;
    }

    CString name;
    const SearchPlaces& places;
    SearchWorld& world;
    bool onlyFirst;
    std::vector<CString> found;
};

} // namespace

std::vector<CString> SplitPathList(std::u16string_view list)
{
    std::vector<CString> folders;
    CString folder;
    bool quoted = false;
    auto finish = [&] {
        folder.Trim();
        if (!folder.empty())
            folders.push_back(folder);
        folder.Clear();
    };
    for (const char16_t unit : list) {
        if (unit == u'"')
            quoted = !quoted;
        else if (unit == u';' && !quoted)
            finish();
        else
            folder.Append(unit);
    }
    finish();
    return folders;
}

CString SearchInOrder(std::u16string_view name, const SearchPlaces& places, SearchWorld& world)
{
    std::vector<CString> found = Search(WithoutQuotes(name), places, world, true).Run();
    return found.empty() ? CString() : std::move(found.front());
}

std::vector<CString> SearchAll(std::u16string_view name, const SearchPlaces& places, SearchWorld& world)
{
    return Search(WithoutQuotes(name), places, world, false).Run();
}
