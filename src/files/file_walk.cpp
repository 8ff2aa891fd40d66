#include "files/file_walk.h"

#include <algorithm>

#include "text/compare.h"
#include "text/path_names.h"

namespace {

// The bit of a reparse tag that marks another name for something else: junctions and symbolic links have it,
// files that are merely stored elsewhere do not.
constexpr std::uint32_t nameSurrogate = 0x20000000;
constexpr std::size_t longestPath = 32767;

bool IsDots(std::u16string_view name) { return name == u"." || name == u".."; }

bool IsLink(const EntryFacts& facts)
{
    return (facts.attributes & file_attribute::reparsePoint) != 0 && (facts.reparseTag & nameSurrogate) != 0;
}

// Most file systems answer in this order already.
template <typename Item> void SortByName(std::vector<Item>& items)
{
    auto before = [](const Item& a, const Item& b) { return CompareNoCase(a.name, b.name) < 0; };
    if (!std::is_sorted(items.begin(), items.end(), before))
        std::stable_sort(items.begin(), items.end(), before);
}

class QuestionsAboutEntry : public RangeQuestions {
public:
    QuestionsAboutEntry(DirectorySource& from, std::u16string_view where, std::u16string_view which)
        : source(from), directory(where), name(which)
    {}
    std::uint64_t CompressedSize() override { return source.CompressedSize(directory, name); }
    CString Owner() override { return source.Owner(directory, name); }
    CString Description() override { return source.Description(directory, name); }

private:
    DirectorySource& source;
    std::u16string_view directory;
    std::u16string_view name;
};

} // namespace

void DirectoryChain::Cut(std::size_t depth) { levels.resize(std::min(levels.size(), depth)); }

void DirectoryChain::Enter(std::size_t depth, const CString& name, std::uint64_t created)
{
    Cut(depth);
    levels.push_back({name, created, std::nullopt, false});
}

std::optional<DirectoryIdentity> DirectoryChain::IdentityOf(Level& level)
{
    if (!level.asked)
        level.identity = source.Identify(level.name);
    level.asked = true;
    return level.identity;
}

bool DirectoryChain::Holds(const DirectoryIdentity& directory)
{
    return std::any_of(levels.begin(), levels.end(),
                       [&](Level& level) { return IdentityOf(level) == directory; });
}

bool DirectoryChain::LeadsBack(const CString& name, std::uint64_t created)
{
    const auto leaf = [](const CString& full) { return FileNamePart(WithoutEndSeparators(full)); };
    std::optional<DirectoryIdentity> own;
    for (Level& level : levels) {
        const bool sameAge = created != 0 && level.created == created;
        if (!sameAge && !EqualNoCase(leaf(level.name), leaf(name)))
            continue;
        own = own ? own : source.Identify(name);
        if (own && IdentityOf(level) == own)
            return true;
    }
    return false;
}

// Receives the entries of one directory.
class FileWalk::Reading : public EntrySink {
public:
    Reading(const FileWalk& reader, WalkedDirectory& target)
        : walk(reader), directory(target), entersMore(target.depth < reader.request.deepest)
    {}

    void Take(const DirectoryEntry& entry) override
    {
        const bool isDots = IsDots(entry.name);
        if (entry.name == u".")
            created = entry.facts.created;
        if (isDots && !walk.request.dots)
            return;
        if (entersMore && entry.facts.IsDirectory() && !isDots)
            TakeDirectory(entry);
        if (walk.Picks(directory.name, entry))
            (isDots ? dots : directory.files)
                .push_back({CString(entry.name), CString(entry.shortName), entry.facts});
    }

    // Of the directory itself.
    std::uint64_t Created() const { return created; }

    // Puts everything in order; the directories go to the end of `next`, the first of them last.
    void Finish(std::vector<Pending>& next)
    {
        SortByName(directory.files);
        directory.files.insert(directory.files.begin(), std::make_move_iterator(dots.begin()),
                               std::make_move_iterator(dots.end()));
        SortByName(inside); // without the separator, which would sort "a.b" before "a"
        for (Pending& one : inside)
            one.name.Append(u'\\');
        next.insert(next.end(), std::make_move_iterator(inside.rbegin()),
                    std::make_move_iterator(inside.rend()));
    }

private:
    void TakeDirectory(const DirectoryEntry& entry)
    {
        const bool link = IsLink(entry.facts);
        if ((link && !walk.request.followsLinks) || !walk.request.attributes.Shows(entry.facts.attributes) ||
            directory.name.size() + entry.name.size() + 1 > longestPath)
            return;
        CString name = directory.name;
        name.Append(entry.name);
        inside.push_back({name, directory.depth + 1, link, entry.facts.created});
    }

    const FileWalk& walk;
    WalkedDirectory& directory;
    bool entersMore;
    std::uint64_t created = 0;
    std::vector<FoundFile> dots;
    std::vector<Pending> inside;
};

FileWalk::FileWalk(WalkRequest what, DirectorySource& from, RangeClock& time)
    : request(std::move(what)), source(from), clock(time), chain(from)
{
    pending.push_back({request.directory, 0, false, 0});
}

bool FileWalk::Matches(const DirectoryEntry& entry) const
{
    if (!request.literalName.empty())
        return true; // the source found it, perhaps by its short name
    return std::any_of(request.patterns.begin(), request.patterns.end(), [&](const auto& pattern) {
        return pattern->Matches(entry.name) ||
               (!entry.shortName.empty() && pattern->Matches(entry.shortName));
    });
}

bool FileWalk::Picks(std::u16string_view directory, const DirectoryEntry& entry) const
{
    if (!request.attributes.Select(entry.facts.attributes) || !Matches(entry))
        return false;
    if (!request.ranges || request.ranges->Empty())
        return true;
    QuestionsAboutEntry questions(source, directory, entry.name);
    return IsInRanges(*request.ranges, entry.name, entry.facts, clock, questions);
}

bool FileWalk::MayEnterLink(const Pending& link)
{
    const std::optional<DirectoryIdentity> target = source.Identify(link.name);
    if (!target)
        return false; // it leads nowhere, or where we may not go
    if (std::find(enteredLinks.begin(), enteredLinks.end(), *target) != enteredLinks.end() ||
        chain.Holds(*target))
        return false;
    enteredLinks.push_back(*target);
    return true;
}

bool FileWalk::Next(WalkedDirectory& directory)
{
    constexpr unsigned pathNotFound = 3;
    while (!pending.empty()) {
        const Pending next = std::move(pending.back());
        pending.pop_back();
        const auto depth = static_cast<std::size_t>(next.depth);
        chain.Cut(depth);
        if (next.link ? !MayEnterLink(next) : chain.LeadsBack(next.name, next.created))
            continue;
        chain.Enter(depth, next.name, next.created);
        directory = {next.name, next.depth, 0, {}};
        Reading reading(*this, directory);
        const std::u16string_view all = u"*";
        directory.error =
            source.Read(next.name, request.literalName.empty() ? all : request.literalName.view(), reading);
        reading.Finish(pending);
        chain.SetCreated(reading.Created());
        // One that went away while its neighbours were read is none.
        if (directory.error == pathNotFound && next.depth > 0)
            continue;
        return true;
    }
    return false;
}
