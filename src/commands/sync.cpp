#include "commands/sync.h"

#include <algorithm>
#include <set>
#include <vector>

#include <windows.h>

#include "commands/extra_files.h"
#include "commands/transfer.h"
#include "commands/tree_removal.h"
#include "commands/tree_transfer.h"
#include "core/command_switches.h"
#include "engine/break.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/directory_source.h"
#include "lang/file_messages.h"
#include "platform/file_facts.h"
#include "text/compare.h"
#include "text/path_names.h"
#include "text/words.h"

const CommandHelp syncHelp = {
    u"Brings a directory tree up to date with another one.",
    u"SYNC [range ...] [/A[:]attributes] [/switches] directory1 directory2",
    u"/2  both ways: what is missing or older on either side comes from the other\n"
    u"/A  only files with attributes, as DIR /A tells\n"
    u"/D  what is encrypted may be in clear at the target\n" //
    FILE_WORK_SWITCHES                                       //
    u"/F  replace and delete what is newer in directory2, too\n"
    u"/G  show progress at once, not only after a second\n"
    u"/J  so that a copy that fails can be gone on with by the same command\n"
    u"/R  ask before a file is replaced (also /-Y; /Y takes it back)\n"
    u"/V  compare each copy with its source\n"
    u"/W  delete from directory2 what directory1 has not (not with /2); with ranges or /A files alone\n"
    u"/Z  replace and delete read-only files too\n"
    u"/ACL  with the rights and the owner that files have\n"
    u"Directory2 gets the files of directory1 that it lacks or has in an older state; subdirectories too, "
    u"empty, hidden and system ones included. What is newer in directory2 stays and is told; so does what "
    u"/W would delete but was changed after directory1 last lost or gained something. Files of one time and "
    u"different sizes are a conflict: both stay. Times that differ by two seconds or less count as one. "
    u"Links to directories are passed over. Directories get the times and attributes of those of directory1 "
    u"(with /2, new ones only). /N shows what would be done. The result counters are %_sync_files, "
    u"%_sync_dirs and %_sync_errors.",
    u"sync /n c:\\work d:\\work\n"
    u"sync /w c:\\photos e:\\photos\n"
    u"sync /2 notes \\\\server\\home\\notes",
};

namespace {

constexpr std::uint64_t twoSeconds = 20'000'000;

bool IsLink(const EntryFacts& facts) { return (facts.attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0; }

// Of two times: 0 when they count as one, else which is later (1 or 2).
int Later(std::uint64_t first, std::uint64_t second)
{
    const std::uint64_t difference = first > second ? first - second : second - first;
    return difference <= twoSeconds ? 0 : first > second ? 1 : 2;
}

class Syncing {
public:
    Syncing(FILESEARCH& forSearch, const TransferSwitches& how, bool forced)
        : transfer(Transfer::Kind::Copy, u"sync", how), search(forSearch), force(forced),
          disk(false), chains{DirectoryChain(disk), DirectoryChain(disk)}
    {}

    void Sync(const TransferName& first, const TransferName& second)
    {
        const CString one = RealDirectory(first.directory);
        const CString other = RealDirectory(second.directory);
        if (EqualNoCase(one, other))
            return transfer.Failed(errors::copyOntoItself, second.shown);
        if (BeginsNoCase(one, other) || BeginsNoCase(other, one))
            return transfer.Failed(errors::targetInSource, second.shown);
        if (!transfer.MakeDirectoryFor(second.directory, second.shown))
            return;
        const EntryFacts facts = DirectoryFacts(first.directory);
        chains[0].Enter(0, first.directory, facts.created);
        chains[1].Enter(0, second.directory, DirectoryFacts(second.directory).created);
        CountForProgress(first, second);
        SyncDirectory(first, second);
        if (!transfer.switches.both && !transfer.work.Pretends())
            DressDirectory(second.directory, facts);
    }

    Transfer transfer;

private:
    struct Entry : FoundFile {
        bool chosen = true; // by ranges and attributes; directories always are
    };

    struct Side {
        TransferName directory;
        const Entry* file = nullptr; // null: not there

        // What is not chosen is there all the same: nothing is missing on its side, but it is not taken.
        bool IsChosen() const { return file && file->chosen; }

        TransferName Named(const FoundFile& like) const
        {
            return {directory.directory, like.name, directory.shown + like.name};
        }
    };

    // What is to be copied. The same is gone through twice for it, which is worth the time only where
    // somebody looks.
    void CountForProgress(const TransferName& first, const TransferName& second)
    {
        if (!transfer.progress.IsWatched())
            return;
        counts = true;
        SyncDirectory(first, second);
        counts = false;
        transfer.progress.Expect(files, bytes);
    }

    void Copy(const Side& from, const Side& to)
    {
        const Entry& file = *from.file;
        if (!file.chosen)
            return transfer.work.Passed();
        if (!counts)
            return transfer.Do(from.Named(file), file.facts, to.Named(to.file ? *to.file : file));
        ++files;
        bytes += file.facts.size;
    }

    bool IsSelective() const
    {
        const AttributeMasks& masks = search.attributes;
        return !search.ranges.Empty() || masks.required != 0 || masks.forbidden != 0 || masks.anyOf != 0;
    }

    // In the order of their names. False when the directory cannot be read, which has been told; one that is
    // not there is empty.
    bool Read(const TransferName& directory, std::vector<Entry>& entries)
    {
        if (!QueryIsDirectory(directory.directory))
            return true;
        const AttributeMasks asked = search.attributes;
        std::vector<Entry> chosen;
        if (IsSelective() && !ReadOnce(directory, chosen))
            return false;
        search.attributes = AttributeMasks::Everything();
        const RANGES ranges = std::exchange(search.ranges, RANGES());
        const bool read = ReadOnce(directory, entries);
        search.attributes = asked;
        search.ranges = ranges;
        if (!read || !IsSelective())
            return read;
        std::set<std::u16string_view> names;
        for (const Entry& entry : chosen)
            names.insert(entry.name);
        for (Entry& entry : entries)
            entry.chosen = entry.facts.IsDirectory() || names.contains(entry.name);
        return true;
    }

    bool ReadOnce(const TransferName& directory, std::vector<Entry>& entries)
    {
        StartSearch(search, CString(u"\"") + directory.directory + u"*\"");
        SearchedDirectory found;
        while (NextDirectory(search, found)) {
            if (found.found.error != 0) {
                if (!counts)
                    transfer.Failed(found.found.error, directory.shown);
                return false;
            }
            for (FoundFile& file : found.found.files)
                if (!IsPassedOver(file.name))
                    entries.push_back({std::move(file)});
        }
        return true;
    }

    void SyncDirectory(const TransferName& first, const TransferName& second)
    {
        std::vector<Entry> ours;
        std::vector<Entry> theirs;
        // Without both sides nothing is known to be missing.
        if (!Read(first, ours) || !Read(second, theirs))
            return;
        auto one = ours.begin();
        auto other = theirs.begin();
        while ((one != ours.end() || other != theirs.end()) && !transfer.work.IsStopped()) {
            ThrowIfBroken();
            const int order = one == ours.end()       ? 1
                              : other == theirs.end() ? -1
                                                      : CompareNoCase(one->name, other->name);
            SyncEntry({first, order <= 0 ? &*one : nullptr}, {second, order >= 0 ? &*other : nullptr});
            one += order <= 0 ? 1 : 0;
            other += order >= 0 ? 1 : 0;
        }
    }

    void SyncEntry(const Side& first, const Side& second)
    {
        const FoundFile& any = first.file ? *first.file : *second.file;
        if ((first.file && IsDirectoryLink(*first.file)) || (second.file && IsDirectoryLink(*second.file)))
            return;
        if (!first.IsChosen() && !second.IsChosen())
            return transfer.work.Passed();
        if (!first.file)
            return OnlySecond(first, second);
        if (second.file && first.file->facts.IsDirectory() != second.file->facts.IsDirectory())
            return Leave(second.file->facts.IsDirectory() ? errors::targetIsDirectory : errors::targetIsFile,
                         second.Named(any).shown);
        if (first.file->facts.IsDirectory())
            return Enter(first, second, any);
        second.file ? SyncFile(first, second) : Copy(first, second);
    }

    static bool IsDirectoryLink(const FoundFile& file)
    {
        return file.facts.IsDirectory() && IsLink(file.facts);
    }

    void Leave(unsigned code, const CString& shown)
    {
        if (!counts)
            transfer.Failed(code, shown);
    }

    // Makes the directory on the side that lacks it.
    void Enter(const Side& first, const Side& second, const FoundFile& directory)
    {
        const TransferName one = first.Named(directory);
        const TransferName other = second.Named(directory);
        const TransferName below1{one.Full() + u"\\", {}, one.shown + u"\\"};
        const TransferName below2{other.Full() + u"\\", {}, other.shown + u"\\"};
        if (!Descend(first, below1, chains[0]) || !Descend(second, below2, chains[1]))
            return;
        const bool isNew = !first.file || !second.file;
        const TransferName& made = first.file ? below2 : below1;
        if (isNew && !counts) {
            const TransferName& from = first.file ? one : other;
            if (!QueryIsDirectory(from.Full()))
                return transfer.Failed(ERROR_PATH_NOT_FOUND, from.shown); // removed meanwhile
            if (!transfer.MakeDirectoryFor(made.directory, made.shown))
                return;
            transfer.DidDirectory(from.shown, first.file ? other.shown : one.shown);
        }
        ++depth;
        SyncDirectory(below1, below2);
        --depth;
        if (!counts && !transfer.work.Pretends() && (isNew || !transfer.switches.both))
            DressDirectory(made.directory, directory.facts);
    }

    // False for a link that looks like a plain directory and leads back to where it stands in.
    bool Descend(const Side& side, const TransferName& below, DirectoryChain& chain) const
    {
        const std::uint64_t created = side.file ? side.file->facts.created : 0;
        chain.Cut(depth + 1);
        if (side.file && chain.LeadsBack(below.directory, created))
            return false;
        chain.Enter(depth + 1, below.directory, created);
        return true;
    }

    void SyncFile(const Side& first, const Side& second)
    {
        const TransferName other = second.Named(*second.file);
        const int later = Later(first.file->facts.written, second.file->facts.written);
        if (later == 0 && first.file->facts.size == second.file->facts.size)
            return transfer.work.Passed();
        if (later == 0)
            return Leave(errors::syncConflict, other.shown);
        if (later == 1 || force)
            return Copy(first, second);
        if (transfer.switches.both)
            return Copy(second, first);
        Leave(errors::newerThere, other.shown);
    }

    void OnlySecond(const Side& first, const Side& second)
    {
        const FoundFile& file = *second.file;
        if (transfer.switches.both)
            return file.facts.IsDirectory() ? Enter(first, second, file) : Copy(second, first);
        // Of what is in a directory that goes, some may not be chosen.
        if (!transfer.switches.mirrors || (file.facts.IsDirectory() && IsSelective()))
            return transfer.work.Passed();
        const auto source = ReadFileFacts(WithoutEndSeparators(first.directory.directory));
        if (!source || counts)
            return;
        if (!force && HoldsLater(second.Named(file), file.facts, FileTimeNumber(source->written)))
            return transfer.Failed(errors::newerThere, second.Named(file).shown);
        RemoveExtra(transfer, first.directory.directory, second.Named(file), file.facts);
    }

    // Whether the file, or one below the directory, was changed after that time.
    bool HoldsLater(const TransferName& name, const EntryFacts& facts, std::uint64_t time)
    {
        if (!facts.IsDirectory())
            return Later(facts.written, time) == 1;
        FILESEARCH inside;
        inside.attributes = AttributeMasks::Everything();
        inside.attributes.forbidden |= file_attribute::directory;
        inside.deepest = allLevels;
        inside.avoidsLinks = true;
        for (bool found = FindFiles(inside, CString(u"\"") + name.Full() + u"\\*\""); found;
             found = FindFiles(inside))
            if (Later(inside.file.facts.written, time) == 1)
                return true;
        return inside.error != 0; // what cannot be seen may be
    }

    FILESEARCH& search;
    bool force;
    SystemDirectories disk;
    DirectoryChain chains[2];
    std::size_t depth = 0;
    bool counts = false; // nothing is done or told
    std::uint64_t files = 0;
    std::uint64_t bytes = 0;
};

} // namespace

int Sync_Command(CString& arguments)
{
    FILESEARCH search;
    TransferSwitches switches;
    search.attributes.included = AttributeMasks::all;
    if (const int code = ReadTransfer(arguments, u"2DJVW", search, switches, u"FGRYZ"))
        return code;
    const std::vector<CString> names = SplitArguments(arguments, true, CurrentSyntax());
    if (names.size() != 2 || (switches.both && switches.mirrors))
        return UsageError();
    const TransferName first = TreeName(names[0]);
    const TransferName second = TreeName(names[1]);
    switches.overHidden = true;
    switches.countsDeleted = true;
    switches.manner.keepsReadOnly = true;
    const bool force = std::exchange(switches.firstErrorEnds, false);
    Syncing syncing(search, switches, force);
    const auto all = [&] {
        if (AreTrees(syncing.transfer, first, second))
            syncing.Sync(first, second);
    };
    return syncing.transfer.Run(all, message::filesSynced);
}
