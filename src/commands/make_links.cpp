#include "commands/make_links.h"

#include <windows.h>

#include "commands/file_work.h"
#include "commands/tree_transfer.h"
#include "core/command_switches.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/target_names.h"
#include "lang/file_messages.h"
#include "platform/file_changes.h"
#include "platform/file_facts.h"
#include "platform/link_making.h"
#include "text/compare.h"
#include "text/path_names.h"
#include "text/words.h"

const CommandHelp mklinkHelp = {
    u"Makes a symbolic link, a hard link or a junction.",
    u"MKLINK [/D | /H | /J] [/E] [/N] [/P] [/Q] [/T] link target",
    u"/D  a symbolic link to a directory\n"
    u"/E  show no error messages\n"
    u"/H  a hard link: another name for a file of the same drive\n"
    u"/J  a junction: a directory that leads to another one of this computer\n"
    u"/N  make nothing, show only what would be made\n"
    u"/P  ask first\n"
    u"/Q  show nothing\n"
    u"/T  show the total only\n"
    u"Without /D, /H and /J a symbolic link is made, to a directory when the target is one that exists. A "
    u"target that does not begin with a drive or a backslash counts from the link's own directory for a "
    u"symbolic link, from the current one for the others. A link that exists is never replaced. The result "
    u"counters are %_mklink_files, %_mklink_dirs and %_mklink_errors.",
    u"mklink /j C:\\data D:\\data\n"
    u"mklink /h copy.txt original.txt\n"
    u"mklink latest releases\\2.1",
};

const CommandHelp mklnkHelp = {
    u"Makes links to many files.",
    u"MKLNK [range ...] [/A[:]attributes] [/E] [/H | /J | /L] [/N] [/P] [/Q] [/S] [/T] name ... [target]",
    u"/A  files with attributes, as DIR /A tells\n" FILE_WORK_SWITCHES u"/H  hard links, files only\n"
    u"/J  junctions, directories only\n"
    u"/L  symbolic links\n"
    u"/S  in all subdirectories too: the directories are made, the files linked\n"
    u"Without /H, /J and /L files get hard links and directories junctions. The target is a directory that "
    u"exists or ends with a backslash, or the name of the link, with \"*\" and \"?\" for what they meet in "
    u"the name; after one name alone the current directory is meant. Wildcards mean files, with /AD "
    u"directories. A link that exists is never replaced. The result counters are %_mklink_files, "
    u"%_mklink_dirs and %_mklink_errors.",
    u"mklnk *.jpg album\\\n"
    u"mklnk /s C:\\work\\*.doc C:\\backup\\\n"
    u"mklnk /l C:\\tools\\bin tools",
};

namespace {

enum class Link { Choose, Symbolic, SymbolicDirectory, Hard, Junction };

unsigned MakeLink(Link kind, const CString& link, const CString& target)
{
    switch (kind) {
    case Link::Hard: return MakeHardLink(link, target);
    case Link::Junction: return MakeJunction(link, target);
    default: return MakeSymbolicLink(link, target, kind == Link::SymbolicDirectory);
    }
}

// All that a link could fail for that is known beforehand.
unsigned AlreadyThere(const CString& link) { return ReadFileAttributes(link) ? ERROR_ALREADY_EXISTS : 0; }

unsigned CreatedText(Link kind)
{
    return kind == Link::Hard       ? message::madeHardLink
           : kind == Link::Junction ? message::madeJunction
                                    : message::madeSymbolicLink;
}

bool IsDirectoryLink(Link kind) { return kind == Link::SymbolicDirectory || kind == Link::Junction; }

// The switches among /D, /H, /J and so on exclude each other: `flags` has a bit for each of `kinds`.
bool ReadKind(std::uint64_t flags, std::initializer_list<Link> kinds, Link& kind)
{
    unsigned bit = 0;
    int given = 0;
    for (const Link one : kinds)
        if ((flags >> bit++ & 1) != 0) {
            kind = one;
            ++given;
        }
    return given <= 1;
}

class Linking {
public:
    Linking(const FileWorkOptions& options, Link wanted, const CString& newName)
        : work(u"mklink", options, BatchManners::Silent), kind(wanted), target(newName)
    {
        const bool isDirectory = target.empty() || IsPathSeparator(target.back()) || target.back() == u':' ||
                                 QueryIsDirectory(target);
        if (isDirectory && !HasWildcards(target))
            target = JoinPath(target.empty() ? CString(u".") : target, u"*");
    }

    void LinkAll(FILESEARCH& search, const CString& argument)
    {
        std::size_t rootLength = 0;
        CString realTarget; // "" unless the target stands in what is searched
        work.ForEachDirectory(search, argument, [&](const SearchedDirectory& directory) {
            if (directory.found.depth == 0) {
                rootLength = directory.found.name.size();
                realTarget = search.deepest > 0 ? TargetBelow(directory.found.name) : CString();
            } else if (!realTarget.empty() && BeginsNoCase(RealDirectory(directory.found.name), realTarget)) {
                return; // links to links would have no end
            }
            const CString below = directory.found.name.Substr(rootLength);
            for (const FoundFile& file : directory.found.files)
                LinkOne(directory, file, below);
        });
    }

    FileWork work;

private:
    CString TargetBelow(const CString& root) const
    {
        const CString place(DirectoryPart(target));
        const CString real =
            RealDirectory(JoinPath(FullPathName(place.empty() ? CString(u".") : place), u""));
        const CString realRoot = RealDirectory(root);
        return !EqualNoCase(real, realRoot) && BeginsNoCase(real, realRoot) ? real : CString();
    }

    Link KindFor(const FoundFile& file) const
    {
        const bool directory = file.facts.IsDirectory();
        if (kind == Link::Symbolic)
            return directory ? Link::SymbolicDirectory : Link::Symbolic;
        return kind != Link::Choose ? kind : directory ? Link::Junction : Link::Hard;
    }

    void LinkOne(const SearchedDirectory& directory, const FoundFile& file, const CString& below)
    {
        const CString shown = CString(directory.shown) + file.name;
        CString name;
        if (!MakeWildcardName(name, target, file.name)) {
            work.Failed(ERROR_FILENAME_EXCED_RANGE, shown);
            return;
        }
        const CString place = CString(DirectoryPart(name)) + below;
        const CString link = place + FileNamePart(name);
        if (!work.Wants(message::askLink, shown))
            return;
        const unsigned failed =
            work.Pretends() ? AlreadyThere(link)
                            : Make(KindFor(file), PathOfEntry(directory.found.name, file.name), place, link);
        if (failed) {
            const bool aboutLink = failed == ERROR_ALREADY_EXISTS || failed == ERROR_PATH_NOT_FOUND;
            work.Failed(failed, aboutLink ? link : shown);
            return;
        }
        file.facts.IsDirectory() ? work.DidDirectory(message::nameAlone, shown, link)
                                 : work.Did(message::nameAlone, shown, link);
    }

    unsigned Make(Link one, const CString& file, const CString& place, const CString& link)
    {
        const bool there = place.empty() || QueryIsDirectory(place);
        const unsigned unmade = there ? 0 : MakeDirectoryWithParents(WithoutEndSeparators(place));
        if (unmade != 0 && unmade != ERROR_ALREADY_EXISTS)
            return unmade;
        if (const unsigned failed = MakeLink(one, link, file))
            return failed;
        NotifyOfChange(IsDirectoryLink(one) ? FolderChange::DirectoryCreated : FolderChange::FileCreated,
                       link);
        return 0;
    }

    Link kind;
    CString target;
};

} // namespace

int Mklink_Command(CString& arguments)
{
    FileWorkOptions options;
    std::uint64_t flags = 0;
    if (const int code = ReadWorkSwitches(arguments, u"DHJ", options, flags))
        return code;
    Link kind = Link::Choose;
    const std::vector<CString> names = SplitArguments(arguments, true, CurrentSyntax());
    if (!ReadKind(flags, {Link::SymbolicDirectory, Link::Hard, Link::Junction}, kind) || names.size() != 2)
        return UsageError();
    const CString link = WithoutQuotes(names[0]);
    const CString target = WithoutQuotes(names[1]);
    if (link.empty() || target.empty())
        return UsageError();
    if (kind == Link::Choose) {
        const CString place =
            IsAbsolutePath(target) ? target : JoinPath(DirectoryPart(FullPathName(link)), target);
        kind = QueryIsDirectory(place) ? Link::SymbolicDirectory : Link::Symbolic;
    }
    FileWork work(u"mklink", options, BatchManners::TotalsOnly);
    if (work.Wants(message::askLink, link)) {
        const unsigned failed = work.Pretends() ? AlreadyThere(link) : MakeLink(kind, link, target);
        const bool aboutLink =
            failed == ERROR_ALREADY_EXISTS || kind == Link::Symbolic || kind == Link::SymbolicDirectory;
        if (failed)
            work.Failed(failed, aboutLink ? link : target);
        else if (IsDirectoryLink(kind))
            work.DidDirectory(CreatedText(kind), link, target);
        else
            work.Did(CreatedText(kind), link, target);
    }
    return work.Finish(options.totalsOnly ? message::linksMade : 0);
}

int Mklnk_Command(CString& arguments)
{
    FILESEARCH search;
    FileWorkOptions options;
    std::uint64_t flags = 0;
    if (const int code = ReadFileWork(arguments, u"HJLS", search, options, flags))
        return code;
    Link kind = Link::Choose;
    std::vector<CString> names = SplitArguments(arguments, true, CurrentSyntax());
    if (!ReadKind(flags & 7, {Link::Hard, Link::Junction, Link::Symbolic}, kind) || names.empty())
        return UsageError();
    CString target;
    if (names.size() > 1) {
        target = WithoutQuotes(names.back());
        names.pop_back();
    }
    if ((flags & 8) != 0)
        search.deepest = allLevels;
    const AttributeMasks masks = search.attributes;
    Linking linking(options, kind, target);
    const auto all = [&] {
        for (const CString& name : names) {
            search.attributes = MasksFor(name, search, masks);
            linking.LinkAll(search, name);
        }
    };
    linking.work.Do(all, message::linksMade);
    return linking.work.Finish(message::linksMade);
}
