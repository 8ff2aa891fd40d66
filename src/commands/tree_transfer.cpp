#include "commands/tree_transfer.h"

#include <algorithm>
#include <vector>

#include <windows.h>

#include "commands/extra_files.h"
#include "engine/break.h"
#include "engine/inifile.h"
#include "files/directory_name.h"
#include "files/excepted_files.h"
#include "files/partial_files.h"
#include "lang/file_messages.h"
#include "platform/file_changes.h"
#include "platform/file_copy.h"
#include "platform/file_details.h"
#include "platform/file_facts.h"
#include "text/compare.h"
#include "text/path_names.h"

namespace {

bool IsDirectoryLink(const EntryFacts& facts)
{
    return facts.IsDirectory() && (facts.attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

class TreeTransfer {
public:
    TreeTransfer(Transfer& work, FILESEARCH& forSearch, const TransferName& from, const TransferName& to)
        : transfer(work), search(forSearch), source(from), target(to), realTarget(RealDirectory(to.directory))
    {}

    void Run()
    {
        if (!IsApart() || !transfer.MakeDirectoryFor(target.directory, target.shown))
            return;
        CountForProgress();
        passed.push_back({source.directory, target.directory, DirectoryFacts(source.directory)});
        StartSearch(search, Pattern());
        SearchedDirectory directory;
        while (!transfer.work.IsStopped() && NextDirectory(search, directory)) {
            if (directory.found.error != 0)
                transfer.Failed(directory.found.error, directory.found.name);
            TakeDirectory(directory.found);
        }
        if (!transfer.work.Pretends())
            Finish();
    }

private:
    struct Passed {
        CString source;
        CString target;
        EntryFacts facts;
        CString shown[2] = {}; // as told, source and target, when it is told that it was moved
    };

    // Neither may stand in the other's way.
    bool IsApart()
    {
        const CString realSource = RealDirectory(source.directory);
        if (EqualNoCase(realSource, realTarget)) {
            transfer.Failed(errors::copyOntoItself, source.shown);
            return false;
        }
        // What mirrors would delete the source for something that it lacks itself.
        if (BeginsNoCase(realTarget, realSource) ||
            (transfer.switches.mirrors && BeginsNoCase(realSource, realTarget))) {
            transfer.Failed(errors::targetInSource, target.shown);
            return false;
        }
        return true;
    }

    CString Pattern() const { return CString(u"\"") + source.directory + u"*\""; }

    // Only where somebody looks: the tree is read twice for it.
    void CountForProgress()
    {
        if (!transfer.progress.IsWatched())
            return;
        std::uint64_t files = 0;
        std::uint64_t bytes = 0;
        StartSearch(search, Pattern());
        SearchedDirectory directory;
        while (NextDirectory(search, directory))
            for (const FoundFile& file : directory.found.files) {
                files += file.facts.IsDirectory() ? 0 : 1;
                bytes += file.facts.size;
            }
        transfer.progress.Expect(files, bytes);
    }

    void TakeDirectory(const WalkedDirectory& directory)
    {
        if (std::any_of(blocked.begin(), blocked.end(),
                        [&](const CString& one) { return BeginsNoCase(directory.name, one); }))
            return;
        const CString below(directory.name.view().substr(source.directory.size()));
        TransferName to{target.directory + below, {}, {}};
        for (const FoundFile& file : directory.files) {
            ThrowIfBroken();
            if (transfer.work.IsStopped())
                return;
            to.name = file.name;
            to.shown = target.shown + below + file.name;
            const TransferName from{directory.name, file.name, source.shown + below + file.name};
            if (IsPassedOver(file.name))
                continue;
            if (!file.facts.IsDirectory())
                transfer.Do(from, file.facts, to);
            else if (directory.depth == search.deepest)
                continue;
            else if (!IsDirectoryLink(file.facts) || (!search.avoidsLinks && aIniFile.DirJunctions))
                TakeSubdirectory(from, file.facts, to);
            else if (search.avoidsLinks)
                TakeLink(from, to);
        }
    }

    void TakeSubdirectory(const TransferName& from, const EntryFacts& facts, const TransferName& to)
    {
        const CString made = to.Full() + u"\\";
        if (IsReservedName(to.directory + to.name))
            return transfer.Failed(errors::reservedTarget, to.shown);
        if (!QueryIsDirectory(from.Full()))
            return transfer.Failed(ERROR_PATH_NOT_FOUND, from.shown); // removed meanwhile
        if (QueryIsFile(to.Full())) {
            blocked.push_back(from.Full() + u"\\");
            return transfer.Failed(errors::targetIsFile, to.shown);
        }
        const bool isNew = !QueryIsDirectory(to.Full());
        if (!transfer.MakeDirectoryFor(made, to.shown))
            return;
        passed.push_back({from.Full() + u"\\", made, facts});
        if (!transfer.work.Pretends())
            transfer.Carry(from, to);
        if (isNew && (!transfer.Moves() || transfer.work.Pretends()))
            return transfer.DidDirectory(from.shown, to.shown);
        if (isNew)
            passed.back().shown[0] = from.shown, passed.back().shown[1] = to.shown;
    }

    void TakeLink(const TransferName& from, const TransferName& to)
    {
        if (!transfer.work.Pretends()) {
            unsigned failed = MakeDirectoryLike(from.Full(), to.Full());
            if (failed == 0 && transfer.Moves())
                failed = RemoveEmptyDirectory(from.Full());
            if (failed != 0)
                return transfer.Failed(failed, from.shown);
        }
        transfer.DidDirectory(from.shown, to.shown);
    }

    // Deepest first: what is done in a directory changes its times.
    void Finish()
    {
        transfer.Leave();
        for (auto one = passed.rbegin(); one != passed.rend(); ++one) {
            DressDirectory(one->target, one->facts);
            if (transfer.Moves())
                RemoveSource(*one);
        }
    }

    // What belongs to no file any more: descriptions, and what a killed shell left. False when there is more.
    static bool RemoveRemains(const CString& directory)
    {
        RemoveAbandonedFiles(directory);
        FILESEARCH rest;
        rest.attributes = AttributeMasks::Everything();
        CString descriptions;
        for (bool found = FindFiles(rest, CString(u"\"") + directory + u"*\""); found;
             found = FindFiles(rest)) {
            if (IsPartialFileName(rest.file.name) || !IsPassedOver(rest.file.name))
                return false;
            descriptions = rest.fullName;
        }
        return descriptions.empty() || EraseFile(descriptions) == 0;
    }

    // One that still holds something was not moved as a whole, which is either wanted or told already.
    void RemoveSource(const Passed& one)
    {
        RemoveEmptied(one);
        if (!one.shown[0].empty() && !ReadFileAttributes(WithoutEndSeparators(one.source)))
            transfer.DidDirectory(one.shown[0], one.shown[1]);
    }

    static void RemoveEmptied(const Passed& one)
    {
        const std::u16string_view name = WithoutEndSeparators(one.source);
        unsigned failed = RemoveEmptyDirectory(name);
        if (failed == ERROR_DIR_NOT_EMPTY && RemoveRemains(one.source))
            failed = RemoveEmptyDirectory(name);
        if (failed == 0)
            NotifyOfChange(FolderChange::DirectoryDeleted, name);
        if (failed != ERROR_ACCESS_DENIED)
            return;
        if ((one.facts.attributes & FILE_ATTRIBUTE_READONLY) != 0 &&
            ChangeAttributes(name, one.facts.attributes & ~std::uint32_t{FILE_ATTRIBUTE_READONLY}) == 0 &&
            RemoveEmptyDirectory(name) != 0)
            ChangeAttributes(name, one.facts.attributes);
    }

    Transfer& transfer;
    FILESEARCH& search;
    const TransferName& source;
    const TransferName& target;
    CString realTarget;
    std::vector<CString> blocked; // directories of the source whose place a file has
    std::vector<Passed> passed;
};

// False when it may not go there, which has been told.
bool MayMoveDirectory(Transfer& transfer, const TransferName& from, const TransferName& to)
{
    if (from.Full() == to.Full()) {
        transfer.Failed(errors::copyOntoItself, from.shown);
        return false;
    }
    if (EqualNoCase(from.Full(), to.Full()))
        return true; // another spelling
    if (const auto there = ReadFileAttributes(to.Full())) {
        const bool isDirectory = (*there & FILE_ATTRIBUTE_DIRECTORY) != 0;
        transfer.Failed(isDirectory ? errors::targetIsDirectory : errors::targetIsFile, to.shown);
        return false;
    }
    if (BeginsNoCase(RealDirectory(to.directory), RealDirectory(from.Full() + u"\\"))) {
        transfer.Failed(errors::targetInSource, to.shown);
        return false;
    }
    return true;
}

void MoveDirectoryAway(Transfer& transfer, const TransferName& from, const TransferName& to)
{
    FILESEARCH everything;
    everything.attributes = AttributeMasks::Everything();
    everything.deepest = allLevels;
    everything.avoidsLinks = true;
    const TransferName source{from.Full() + u"\\", {}, from.shown + u"\\"};
    const TransferName target{to.Full() + u"\\", {}, to.shown + u"\\"};
    TransferTree(transfer, everything, source, target);
    if (ReadFileAttributes(from.Full()))
        return; // what stayed has been told
    transfer.DidDirectory(from.shown, to.shown);
    transfer.Carry(from, to);
}

} // namespace

EntryFacts DirectoryFacts(const CString& directory)
{
    EntryFacts entry;
    if (const auto facts = ReadFileFacts(WithoutEndSeparators(directory))) {
        entry.attributes = facts->attributes;
        entry.written = FileTimeNumber(facts->written);
        entry.accessed = FileTimeNumber(facts->accessed);
        entry.created = FileTimeNumber(facts->created);
    }
    return entry;
}

void DressDirectory(const CString& directory, const EntryFacts& like)
{
    constexpr std::uint32_t kept = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    const std::u16string_view made = WithoutEndSeparators(directory);
    const EntryFacts now = DirectoryFacts(directory);
    if (now.written != like.written || now.created != like.created)
        ChangeFileTimes(made, {like.written, like.accessed, like.created});
    if ((like.attributes & kept & ~now.attributes) != 0)
        ChangeAttributes(made, now.attributes | (like.attributes & kept));
}

CString RealDirectory(const CString& directory)
{
    CString rest;
    CString existing(WithoutEndSeparators(directory));
    for (;;) {
        if (CString real = RealPathName(existing); !real.empty())
            return (IsPathSeparator(real.back()) ? real : real + u"\\") + rest;
        const std::u16string_view parent = WithoutEndSeparators(DirectoryPart(existing));
        if (parent.size() >= existing.size() || parent.empty())
            return directory;
        rest = CString(FileNamePart(existing)) + u"\\" + rest;
        existing = CString(parent);
    }
}

TransferName TreeName(std::u16string_view text)
{
    const CString name = CleanDirectoryName(text);
    TransferName tree;
    tree.directory = FullPathName(name);
    if (!IsPathSeparator(tree.directory.back()))
        tree.directory.Append(u'\\');
    tree.shown = JoinPath(name, u"");
    if (!tree.shown.empty() && !IsPathSeparator(tree.shown.back()) && tree.shown.back() != u':')
        tree.shown.Append(u'\\');
    return tree;
}

bool AreTrees(Transfer& transfer, const TransferName& source, const TransferName& target)
{
    // No name, as of a variable that is not set, must not mean the current directory here.
    if (source.shown.empty() || target.shown.empty())
        transfer.Failed(ERROR_INVALID_NAME, u"\"\"");
    else if (!QueryIsDirectory(source.directory))
        transfer.Failed(ERROR_PATH_NOT_FOUND, WithoutEndSeparators(source.shown));
    else if (QueryIsFile(WithoutEndSeparators(target.directory)))
        transfer.Failed(errors::targetIsFile, WithoutEndSeparators(target.shown));
    else
        return true;
    return false;
}

void TransferTree(Transfer& transfer, FILESEARCH& search, const TransferName& source,
                  const TransferName& target)
{
    TreeTransfer(transfer, search, source, target).Run();
}

void MoveDirectory(Transfer& transfer, const TransferName& from, const EntryFacts& facts,
                   const TransferName& to)
{
    if (!transfer.work.Wants(message::askMove, from.shown) || !MayMoveDirectory(transfer, from, to))
        return;
    if (!transfer.work.Pretends()) {
        if (!transfer.MakeDirectoryFor(to.directory, to.shown))
            return;
        // What EXCEPT keeps below it must stay where it is.
        const bool whole = EqualNoCase(from.Full(), to.Full()) || !IsExceptedBelow(from.Full());
        unsigned failed = whole ? RenameFile(from.Full(), to.Full(), false) : unsigned{ERROR_NOT_SAME_DEVICE};
        if (failed == ERROR_NOT_SAME_DEVICE && IsDirectoryLink(facts)) {
            failed = MakeDirectoryLike(from.Full(), to.Full());
            failed = failed != 0 ? failed : RemoveEmptyDirectory(from.Full());
        } else if (failed == ERROR_NOT_SAME_DEVICE) {
            return MoveDirectoryAway(transfer, from, to);
        }
        if (failed != 0)
            return transfer.Failed(failed, from.shown);
        transfer.Carry(from, to);
        transfer.NoteMovedFrom(from.directory);
        NotifyOfChange(FolderChange::FileRenamed, from.Full(), to.Full());
    }
    transfer.DidDirectory(from.shown, to.shown);
}
