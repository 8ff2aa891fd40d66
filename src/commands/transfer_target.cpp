#include "commands/transfer_target.h"

#include <windows.h>

#include "commands/extra_files.h"
#include "commands/tree_transfer.h"
#include "core/pseudo_devices.h"
#include "engine/console_entry.h"
#include "engine/inifile.h"
#include "files/descriptions.h"
#include "files/directory_name.h"
#include "files/search_names.h"
#include "files/target_names.h"
#include "lang/file_messages.h"
#include "platform/file_facts.h"
#include "text/compare.h"
#include "text/path_names.h"
#include "text/words.h"

namespace {

bool IsDirectoryByForm(std::u16string_view name)
{
    const std::u16string_view last = FileNamePart(name);
    return last.empty() || last == u"." || last == u"..";
}

CString WithSeparator(CString name)
{
    if (!name.empty() && !IsPathSeparator(name.back()))
        name.Append(u'\\');
    return name;
}

} // namespace

TransferTarget::TransferTarget(std::u16string_view given, Plain plain) : text(CleanDirectoryName(given))
{
    if ((!HasDirectory(text) && IsDeviceName(text)) || PseudoDevice::Find(text)) {
        kind = Kind::Device;
        return;
    }
    if (HasWildcards(FileNamePart(text))) {
        kind = Kind::Pattern;
        pattern = FileNamePart(text);
        shownDirectory = DirectoryPart(text);
    } else if (plain == Plain::Directory || IsDirectoryByForm(text) ||
               (plain == Plain::AsIs && QueryIsDirectory(text))) {
        kind = Kind::Directory;
        shownDirectory = text.view().ends_with(u':') ? text : WithSeparator(text);
    } else {
        // As the system makes it: without periods and blanks at its end.
        const CString full = FullPathName(text);
        pattern = full.view().starts_with(u"\\\\.\\") ? FileNamePart(text) : FileNamePart(full);
        shownDirectory = DirectoryPart(text);
    }
    directory = WithSeparator(FullPathName(shownDirectory.empty() ? CString(u".") : shownDirectory));
    // "." need not be seen in every line.
    if (kind == Kind::Directory && (text == u"." || text.empty()))
        shownDirectory.Clear();
}

bool TransferTarget::Prepare(Transfer& transfer) const
{
    if (text.empty()) {
        transfer.Failed(ERROR_INVALID_NAME, u"\"\"");
        return false;
    }
    // A stream of a file cannot be put in place as a whole.
    const std::size_t colon = directory.Find(u':');
    if (HasWildcards(shownDirectory) ||
        (colon != CString::npos && directory.Find(u':', colon + 1) != CString::npos) ||
        pattern.Find(u':') != CString::npos) {
        transfer.Failed(ERROR_INVALID_NAME, text);
        return false;
    }
    if (kind == Kind::Device)
        return true;
    if (IsReservedName(directory + pattern)) {
        transfer.Failed(errors::reservedTarget, text);
        return false;
    }
    if (QueryIsDirectory(directory))
        return true;

    if (QueryIsFile(WithoutEndSeparators(directory))) {
        transfer.Failed(errors::targetIsFile, WithoutEndSeparators(shownDirectory));
        return false;
    }
    const bool unasked = transfer.switches.makesTarget || transfer.work.Pretends();
    if (!unasked &&
        QueryInputChar(message::askMakeTarget, WithoutEndSeparators(shownDirectory), u"YN", u'N') != u'Y') {
        transfer.Failed(kind == Kind::Directory ? unsigned{errors::targetNoDirectory} : ERROR_PATH_NOT_FOUND,
                        text);
        return false;
    }
    return transfer.MakeDirectoryFor(directory, shownDirectory);
}

bool TransferTarget::Place(std::u16string_view below, std::u16string_view name, TransferName& place) const
{
    place.name = name;
    if (kind == Kind::File)
        place.name = pattern;
    else if (!pattern.empty() && !MakeWildcardName(place.name, pattern, name))
        return false;
    place.directory = directory + below;
    place.shown = (shownDirectory + below) + place.name;
    return true;
}

TransferName TransferTarget::DirectoryBelow(std::u16string_view below) const
{
    return {directory + below, {}, shownDirectory + below};
}

bool MayMeanSeveral(const CString& argument)
{
    const CString name = WithoutQuotes(argument);
    if (argument.front() == u'@' || HasWildcards(name))
        return true;
    const std::vector<SearchTarget> targets = SplitSearchNames(argument);
    return targets.size() > 1 || (!targets.empty() && targets[0].names.size() > 1);
}

void ExpectMatches(Transfer& transfer, FILESEARCH& search, const CString& argument)
{
    if (!transfer.progress.IsWatched() || transfer.work.Pretends())
        return;
    std::uint64_t files = 0;
    std::uint64_t bytes = 0;
    StartSearch(search, argument);
    SearchedDirectory directory;
    while (NextDirectory(search, directory))
        for (const FoundFile& file : directory.found.files)
            if (directory.literal || !IsPassedOver(file.name)) {
                ++files;
                bytes += file.facts.size;
            }
    transfer.progress.Expect(files, bytes);
}

void TransferMatches(Transfer& transfer, FILESEARCH& search, const CString& argument,
                     const TransferTarget& target)
{
    if (transfer.work.IsStopped())
        return;
    // Of what is copied over, the source is still there.
    if (transfer.Moves() && (target.GetKind() == TransferTarget::Kind::Pattern || argument.front() == u'@' ||
                             SplitSearchNames(argument).size() > 1))
        transfer.WatchForCollisions();
    const std::int64_t errorsBefore = transfer.work.Errors();
    TransferName place;
    target.Place(u"", u"x", place);
    const CString ownPlace = place.directory;
    CString realTarget; // "" unless the target stands in the source
    std::size_t rootLength = 0;
    transfer.work.ForEachDirectory(search, argument, [&](const SearchedDirectory& directory) {
        if (directory.found.depth == 0) {
            rootLength = directory.found.name.size();
            const CString realRoot = search.deepest > 0 ? RealDirectory(directory.found.name) : CString();
            realTarget = RealDirectory(ownPlace);
            // What mirrors must not take a part of its source for its target.
            if (transfer.switches.mirrors && !realRoot.empty() &&
                (BeginsNoCase(realTarget, realRoot) || BeginsNoCase(realRoot, realTarget))) {
                transfer.Failed(errors::targetInSource, target.Text());
                return transfer.work.Stop();
            }
            if (realRoot.empty() || EqualNoCase(realTarget, realRoot) || !BeginsNoCase(realTarget, realRoot))
                realTarget.Clear();
        } else if (!realTarget.empty() && BeginsNoCase(RealDirectory(directory.found.name), realTarget)) {
            return;
        }
        const std::u16string_view below = directory.found.name.view().substr(rootLength);
        for (const FoundFile& file : directory.found.files) {
            if (transfer.work.IsStopped())
                return;
            const CString shown = CString(directory.shown) + file.name;
            // The whole description file would overwrite the target's; its entries go along anyway.
            if (!directory.literal && IsPassedOver(file.name))
                continue;
            if (!target.Place(below, file.name, place)) {
                transfer.Failed(ERROR_FILENAME_EXCED_RANGE, shown);
                continue;
            }
            const TransferName from{directory.found.name, file.name, shown};
            file.facts.IsDirectory() ? MoveDirectory(transfer, from, file.facts, place)
                                     : transfer.Do(from, file.facts, place);
        }
        // Of directories that nothing was copied from there need be none.
        const TransferName there = target.DirectoryBelow(below);
        if (transfer.switches.mirrors && directory.found.error == 0 && QueryIsDirectory(there.directory))
            RemoveExtraFiles(transfer, argument, directory.found.name, there);
    });
    // The search tells its errors itself.
    if (transfer.switches.firstErrorEnds && transfer.work.Errors() > errorsBefore)
        transfer.work.Stop();
}
