#include "commands/dedupe.h"

#include <algorithm>
#include <map>
#include <optional>
#include <unordered_set>
#include <utility>
#include <vector>

#include <windows.h>

#include "commands/extra_files.h"
#include "commands/file_texts.h"
#include "commands/file_work.h"
#include "commands/search_switches.h"
#include "console/progress.h"
#include "core/command_switches.h"
#include "engine/console_entry.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/description_changes.h"
#include "files/duplicates.h"
#include "files/file_comparison.h"
#include "lang/file_messages.h"
#include "lang/function_messages.h"
#include "platform/file_changes.h"
#include "platform/file_details.h"
#include "platform/file_facts.h"
#include "text/compare.h"
#include "text/format.h"
#include "text/path_names.h"
#include "text/words.h"

const CommandHelp dedupeHelp = {
    u"Finds files that hold the same, deletes them or makes them one.",
    u"DEDUPE [range ...] [/A[:]attributes] [/D | /L] [/K:which] [/E] [/N] [/P] [/Q] [/R] [/S[levels]] [/T] "
    u"[/Y] [/Z] name ...",
    u"/A  files with attributes, as DIR /A tells\n"
    u"/D  delete all but one of equal files\n"
    u"/E  show no error messages\n"
    u"/K  which one is kept: first (found, if not told), newest, oldest, or shortest (full name)\n"
    u"/L  replace all but one of equal files by hard links to that one\n"
    u"/N  change nothing, show only what would be done\n"
    u"/P  ask before each file, as is done without /Y anyway: Y yes, N no, R the rest without asking, Esc "
    u"or Q no more\n"
    u"/Q  show neither names nor totals\n"
    u"/R  with /D, into the recycle bin\n"
    u"/S  directories below as well; with a number, so many levels of them\n"
    u"/T  show totals only\n"
    u"/Y  delete or link without asking\n"
    u"/Z  empty files too, which are all equal\n"
    u"Without /D and /L equal files are listed, the one to be kept first. Files are equal when all their "
    u"bytes are, whatever their names, dates and attributes. Names of one file (hard links) are no "
    u"duplicates of each other, but all of them are of another file. Before a file is deleted or replaced "
    u"its bytes are compared once more with those of the file that is kept; the last copy is never deleted. "
    u"A name that is a directory stands for all files in it; /D and /L never go through links to "
    u"directories. Hard links stand on one volume only, and are one file: what is written to it is seen "
    u"under all its names. The result counters are %_dedupe_files, the duplicates found or removed, and "
    u"%_dedupe_errors.",
    u"dedupe /s *.jpg\n"
    u"dedupe /s /d /k:oldest c:\\photos\\*\n"
    u"dedupe /s /l /y /[s1M] *",
};

namespace {

enum class Kept { First, Newest, Oldest, Shortest };
enum class Treatment { List, Delete, Link };

struct DedupeOptions {
    FileWorkOptions work;
    FILESEARCH search;
    Treatment treatment = Treatment::List;
    Kept kept = Kept::First;
    bool usesBin = false;
    bool emptyFiles = false;
};

int ReadKept(std::u16string_view text, Kept& kept)
{
    constexpr std::u16string_view names[] = {u"first", u"newest", u"oldest", u"shortest"};
    for (std::size_t i = 0; i < std::size(names); ++i)
        if (!text.empty() && BeginsNoCase(names[i], text)) {
            kept = static_cast<Kept>(i);
            return result::success;
        }
    return MVError(errors::unknownChoice, text);
}

int ReadOptions(CString& arguments, DedupeOptions& options)
{
    CString text;
    if (TakeSwitchText(arguments, u"K", text))
        if (const int code = ReadKept(text, options.kept))
            return code;
    if (const int code = TakeDepthSwitch(arguments, options.search.deepest))
        return code;
    std::uint64_t flags = 0;
    if (const int code = ReadFileWork(arguments, u"DLRYZ", options.search, options.work, flags))
        return code;
    if ((flags & 3) == 3)
        return UsageError();
    options.treatment = (flags & 1) ? Treatment::Delete : (flags & 2) ? Treatment::Link : Treatment::List;
    options.usesBin = (flags & 4) != 0;
    options.emptyFiles = (flags & 16) != 0;
    options.search.attributes.forbidden |= file_attribute::directory;
    options.search.intoDirectories = true;
    options.search.avoidsLinks = options.treatment != Treatment::List;
    const bool changes = options.treatment != Treatment::List && !options.work.pretends;
    options.work.asks = changes && ((flags & 8) == 0 || options.work.asks);
    return options.work.asks && !MayAsk() ? MVError(errors::dedupeUnattended) : result::success;
}

// A hard link in the place of a file: at no time is there nothing under its name.
unsigned ReplaceByLink(const CString& name, const CString& target)
{
    for (unsigned number = 0;; ++number) {
        const CString temporary = Format(u"%s.%u.~", name, number);
        const unsigned made = MakeHardLink(temporary, target);
        if (made == ERROR_ALREADY_EXISTS)
            continue;
        if (made)
            return made;
        const unsigned renamed = RenameFile(temporary, name, true);
        if (renamed)
            EraseFile(temporary);
        return renamed;
    }
}

class Deduping {
public:
    explicit Deduping(DedupeOptions& what)
        : work(u"dedupe", what.work, BatchManners::TotalsOnly), options(what)
    {
        shows = !options.work.quiet && !options.work.totalsOnly;
    }

    void Collect(const CString& argument);
    int Run();

private:
    void Treat(std::vector<DuplicateFile>& group);
    // The file that is kept comes first, without its other names.
    void PutKeptFirst(std::vector<DuplicateFile>& group) const;
    void CountRemoved(const DuplicateFile& duplicate);
    void List(const std::vector<DuplicateFile>& group);
    void DropDescription(const CString& gone);
    void Remove(const DuplicateFile& kept, const DuplicateFile& duplicate);
    unsigned Change(const DuplicateFile& kept, const DuplicateFile& duplicate) const;
    // 0 when the two are still what they were and equal, else an error's code.
    static unsigned Verify(const DuplicateFile& kept, const DuplicateFile& duplicate);
    void ShowTotals() const;
    bool OnlyTells() const { return options.treatment == Treatment::List || options.work.pretends; }

    FileWork work;
    DedupeOptions& options;
    FileTexts texts;
    bool shows = true;
    std::vector<DuplicateFile> files;
    std::unordered_set<CString, NoCaseHash, NoCaseEqual> known;                 // their full names
    std::map<std::pair<std::uint64_t, std::uint64_t>, std::uint32_t> namesGone; // by volume and file
    CString describedDirectory;
    std::optional<DescriptionChanges> descriptions; // of that directory
    std::size_t groups = 0;
    std::uint64_t duplicates = 0;
    std::uint64_t bytes = 0;
};

void Deduping::Collect(const CString& argument)
{
    FILESEARCH& search = options.search;
    const bool any = work.ForEachFile(search, argument, [&] {
        if ((search.file.facts.size == 0 && !options.emptyFiles) || IsPassedOver(search.file.name))
            return;
        // A link's own name is not the file's.
        if ((search.file.facts.attributes & file_attribute::reparsePoint) != 0)
            return;
        if (!known.insert(search.fullName).second)
            return; // of two arguments
        files.push_back({search.name, search.fullName, search.file.facts.size, search.file.facts.written,
                         files.size(), FileIdentity()});
    });
    if (!any)
        work.Failed(ERROR_FILE_NOT_FOUND, WithoutQuotes(argument));
}

void Deduping::PutKeptFirst(std::vector<DuplicateFile>& group) const
{
    const auto better = [this](const DuplicateFile& a, const DuplicateFile& b) {
        switch (options.kept) {
        case Kept::Newest: return a.written > b.written;
        case Kept::Oldest: return a.written < b.written;
        case Kept::Shortest: return a.full.size() < b.full.size();
        default: return false;
        }
    };
    const auto kept = std::min_element(group.begin(), group.end(), better);
    std::rotate(group.begin(), kept, kept + 1);
    const auto isKept = [first = group.front()](const DuplicateFile& file) {
        return IsSameFile(file, first);
    };
    group.erase(std::remove_if(group.begin() + 1, group.end(), isKept), group.end());
}

// A file counts once, and its room is free only when its last name is gone.
void Deduping::CountRemoved(const DuplicateFile& duplicate)
{
    ++duplicates;
    const FileIdentity& identity = duplicate.identity;
    const std::uint32_t names = OnlyTells() ? 1 : identity.links;
    if (++namesGone[{identity.volume, identity.file}] == names)
        bytes += duplicate.size;
}

void Deduping::List(const std::vector<DuplicateFile>& group)
{
    if (shows)
        PrintLine(LoadMessage(message::dedupeGroup, texts.Number(group.front().size)));
    for (const DuplicateFile& file : group)
        if (shows)
            PrintLine(Format(u"  %s", file.shown));
}

unsigned Deduping::Verify(const DuplicateFile& kept, const DuplicateFile& duplicate)
{
    for (const DuplicateFile* file : {&kept, &duplicate}) {
        const std::optional<FileFacts> facts = ReadFileFacts(file->full);
        if (!facts)
            return GetLastError();
        if (facts->size != file->size || FileTimeNumber(facts->written) != file->written)
            return errors::changedMeanwhile;
    }
    const FileComparison comparison = CompareFiles(kept.full, duplicate.full);
    return comparison.error ? comparison.error : comparison.same ? 0 : errors::changedMeanwhile;
}

unsigned Deduping::Change(const DuplicateFile& kept, const DuplicateFile& duplicate) const
{
    if (options.treatment == Treatment::Link && kept.identity.volume != duplicate.identity.volume)
        return errors::otherVolume;
    if (const unsigned code = Verify(kept, duplicate))
        return code;
    if (options.treatment == Treatment::Link)
        return ReplaceByLink(duplicate.full, kept.full);
    return options.usesBin ? MoveToRecycleBin(duplicate.full) : EraseFile(duplicate.full);
}

void Deduping::Remove(const DuplicateFile& kept, const DuplicateFile& duplicate)
{
    const bool links = options.treatment == Treatment::Link;
    if (!work.Wants(links ? message::askDedupeLink : message::askDedupeDelete, duplicate.shown))
        return;
    if (const unsigned code = work.Pretends() ? 0 : Change(kept, duplicate)) {
        work.Failed(code, duplicate.shown);
        return;
    }
    CountRemoved(duplicate);
    work.Did(links ? message::dedupeLinked : message::dedupeDeleted, duplicate.shown, kept.shown);
    if (work.Pretends())
        return;
    NotifyOfChange(links ? FolderChange::FileUpdated : FolderChange::FileDeleted, duplicate.full);
    if (!links)
        DropDescription(duplicate.full);
}

void Deduping::DropDescription(const CString& gone)
{
    const std::u16string_view directory = DirectoryPart(gone);
    if (!descriptions || describedDirectory != directory) {
        describedDirectory = directory;
        descriptions.emplace(directory);
    }
    descriptions->Remove(FileNamePart(gone));
}

void Deduping::Treat(std::vector<DuplicateFile>& group)
{
    ++groups;
    PutKeptFirst(group);
    if (options.treatment == Treatment::List) {
        List(group);
        for (std::size_t i = 1; i < group.size(); ++i) {
            CountRemoved(group[i]);
            work.Count();
        }
        return;
    }
    for (std::size_t i = 1; i < group.size() && !work.IsStopped(); ++i)
        Remove(group.front(), group[i]);
}

void Deduping::ShowTotals() const
{
    if (options.work.quiet)
        return;
    PrintLine(Format(u"%16s %s %s %s", texts.Number(duplicates), LoadMessage(message::duplicatesFound),
                     texts.Number(groups), LoadMessage(message::groupsOfFiles)));
    PrintLine(Format(u"%16s %s", texts.Number(bytes),
                     LoadMessage(OnlyTells() ? message::bytesDoubled : message::bytesFreed)));
}

int Deduping::Run()
{
    Progress progress;
    const auto failed = [&](unsigned code, const CString& name) {
        progress.Hide();
        work.Failed(code, name);
    };
    auto groupsFound = FindDuplicates(files, failed, [&](const CString& name) { progress.Begin(name); });
    progress.Hide();
    for (std::vector<DuplicateFile>& group : groupsFound) {
        if (work.IsStopped())
            break;
        Treat(group);
    }
    ShowTotals();
    return work.FinishQuietly();
}

} // namespace

int Dedupe_Command(CString& arguments)
{
    DedupeOptions options;
    if (const int code = ReadOptions(arguments, options))
        return code;
    const std::vector<CString> names = SplitArguments(arguments, true, CurrentSyntax());
    if (names.empty())
        return UsageError();
    Deduping deduping(options);
    for (const CString& name : names)
        deduping.Collect(name);
    return deduping.Run();
}
