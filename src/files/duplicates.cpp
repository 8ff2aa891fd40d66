#include "files/duplicates.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <utility>

#include <windows.h>

#include "engine/break.h"
#include "files/file_comparison.h"
#include "files/file_digest.h"
#include "platform/byte_files.h"
#include "platform/file_details.h"

namespace {

using Group = std::vector<DuplicateFile>;
constexpr std::size_t edge = 4096; // bytes that are looked at first, at both ends

// Parts a group by a key of each file; false from `keyOf` leaves a file out. Groups of one are dropped.
template <typename KeyOf> void PartBy(const Group& group, std::vector<Group>& parts, KeyOf keyOf)
{
    std::map<std::string, std::size_t> places;
    std::vector<Group> found;
    for (const DuplicateFile& file : group) {
        ThrowIfBroken();
        std::string key;
        if (!keyOf(file, key))
            continue;
        const auto [place, isNew] = places.emplace(key, found.size());
        if (isNew)
            found.emplace_back();
        found[place->second].push_back(file);
    }
    for (Group& one : found)
        if (one.size() > 1)
            parts.push_back(std::move(one));
}

bool ReadAt(InputFile& file, std::uint64_t place, std::size_t count, std::string& bytes)
{
    if (!file.Seek(place))
        return false;
    bytes.resize(count);
    std::size_t held = 0;
    for (std::size_t got = 1; held < count && got > 0; held += got)
        if (!file.Read(bytes.data() + held, count - held, got))
            return false;
    bytes.resize(held);
    return true;
}

bool EdgesOf(const DuplicateFile& one, std::string& edges)
{
    InputFile file;
    std::string last;
    const std::size_t count = static_cast<std::size_t>(std::min<std::uint64_t>(edge, one.size));
    if (!file.Open(one.full) || !ReadAt(file, 0, count, edges) ||
        (one.size > edge && !ReadAt(file, one.size - count, count, last)))
        return false;
    edges += last;
    return true;
}

bool DigestOf(const DuplicateFile& one, std::string& digest)
{
    Digest sum(DigestKind::Sha256);
    if (!DigestFile(one.full, {&sum, 1}))
        return false;
    digest = sum.Finish();
    return true;
}

// One name of each file on the disk.
Group WithoutLinks(const Group& group, const DuplicateFailure& failed)
{
    Group kept;
    std::set<std::pair<std::uint64_t, std::uint64_t>> seen;
    for (DuplicateFile file : group) {
        const std::optional<FileIdentity> identity = IdentifyFile(file.full);
        if (!identity) {
            failed(GetLastError(), file.shown);
            continue;
        }
        file.volume = identity->volume;
        if (seen.emplace(identity->volume, identity->file).second)
            kept.push_back(std::move(file));
    }
    return kept;
}

class Finder {
public:
    Finder(const DuplicateFailure& report, const DuplicateWatch& watching) : failed(report), watch(watching)
    {}

    void FindIn(const Group& sameSize)
    {
        const Group group = WithoutLinks(sameSize, failed);
        std::vector<Group> alike;
        PartBy(group, alike, [this](const DuplicateFile& file, std::string& key) {
            watch(file.shown);
            return EdgesOf(file, key) || Report(file);
        });
        for (const Group& one : alike) {
            if (one.front().size <= 2 * edge)
                groups.push_back(one); // the edges are all there is
            else if (one.size() == 2)
                AddPair(one);
            else
                PartBy(one, groups, [this](const DuplicateFile& file, std::string& key) {
                    watch(file.shown);
                    return DigestOf(file, key) || Report(file);
                });
        }
    }

    std::vector<Group> groups;

private:
    bool Report(const DuplicateFile& file)
    {
        failed(GetLastError(), file.shown);
        return false;
    }

    // Comparing two files costs less than two checksums, and ends at the first difference.
    void AddPair(const Group& pair)
    {
        watch(pair[1].shown);
        const FileComparison comparison = CompareFiles(pair[0].full, pair[1].full);
        if (comparison.error)
            failed(comparison.error, comparison.failed);
        else if (comparison.same)
            groups.push_back(pair);
    }

    const DuplicateFailure& failed;
    const DuplicateWatch& watch;
};

} // namespace

std::vector<std::vector<DuplicateFile>> FindDuplicates(const std::vector<DuplicateFile>& files,
                                                       const DuplicateFailure& failed,
                                                       const DuplicateWatch& watch)
{
    std::map<std::uint64_t, Group> sizes;
    for (const DuplicateFile& file : files)
        sizes[file.size].push_back(file);
    Finder finder(failed, watch);
    for (const auto& [size, group] : sizes)
        if (group.size() > 1)
            finder.FindIn(group);
    std::sort(finder.groups.begin(), finder.groups.end(),
              [](const Group& a, const Group& b) { return a.front().place < b.front().place; });
    return std::move(finder.groups);
}
