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

class Finder {
public:
    Finder(const DuplicateFailure& report, const DuplicateWatch& watching) : failed(report), watch(watching)
    {}

    void FindIn(const Group& sameSize)
    {
        std::vector<Group> found;
        FindAmong(FirstNames(sameSize), found);
        for (Group& group : found) {
            AddOtherNames(group);
            groups.push_back(std::move(group));
        }
    }

    std::vector<Group> groups;

private:
    using FileNumber = std::pair<std::uint64_t, std::uint64_t>; // of its volume, and there
    static FileNumber NumberOf(const DuplicateFile& file)
    {
        return {file.identity.volume, file.identity.file};
    }

    // One name of each file on the disk; the others are kept for later.
    Group FirstNames(const Group& group)
    {
        Group firsts;
        std::set<FileNumber> seen;
        otherNames.clear();
        for (DuplicateFile file : group) {
            const std::optional<FileIdentity> identity = IdentifyFile(file.full);
            if (!identity) {
                Report(file);
                continue;
            }
            file.identity = *identity;
            if (seen.insert(NumberOf(file)).second)
                firsts.push_back(std::move(file));
            else
                otherNames[NumberOf(file)].push_back(std::move(file));
        }
        return firsts;
    }

    void AddOtherNames(Group& group)
    {
        for (std::size_t i = group.size(); i-- > 0;)
            if (const auto more = otherNames.find(NumberOf(group[i])); more != otherNames.end())
                group.insert(group.end(), more->second.begin(), more->second.end());
        std::sort(group.begin(), group.end(),
                  [](const DuplicateFile& a, const DuplicateFile& b) { return a.place < b.place; });
    }

    void FindAmong(const Group& firsts, std::vector<Group>& found)
    {
        std::vector<Group> alike;
        PartBy(firsts, alike, [this](const DuplicateFile& file, std::string& key) {
            watch(file.shown);
            return EdgesOf(file, key) || Report(file);
        });
        for (const Group& one : alike) {
            if (one.front().size <= 2 * edge)
                found.push_back(one); // the edges are all there is
            else if (one.size() == 2)
                AddPair(one, found);
            else
                PartBy(one, found, [this](const DuplicateFile& file, std::string& key) {
                    watch(file.shown);
                    return DigestOf(file, key) || Report(file);
                });
        }
    }

    bool Report(const DuplicateFile& file)
    {
        failed(GetLastError(), file.shown);
        return false;
    }

    // Comparing two files costs less than two checksums, and ends at the first difference.
    void AddPair(const Group& pair, std::vector<Group>& found)
    {
        watch(pair[1].shown);
        const FileComparison comparison = CompareFiles(pair[0].full, pair[1].full);
        if (comparison.error)
            failed(comparison.error, comparison.failed);
        else if (comparison.same)
            found.push_back(pair);
    }

    const DuplicateFailure& failed;
    const DuplicateWatch& watch;
    std::map<FileNumber, Group> otherNames;
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
