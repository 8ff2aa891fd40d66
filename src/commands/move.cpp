#include "commands/move.h"

#include <algorithm>
#include <unordered_set>

#include <windows.h>

#include "commands/transfer.h"
#include "commands/transfer_target.h"
#include "commands/tree_transfer.h"
#include "core/command_switches.h"
#include "engine/results.h"
#include "engine/state.h"
#include "lang/file_messages.h"
#include "platform/file_changes.h"
#include "platform/file_facts.h"
#include "text/compare.h"
#include "text/path_names.h"
#include "text/words.h"

const CommandHelp moveHelp = {
    u"Moves files and directories.",
    u"MOVE [range ...] [/A[:]attributes] [/switches] source ... [target]",
    u"/A  files with attributes, as DIR /A tells\n"
    u"/D  the target is a directory\n"
    u"/MD make the target directory without asking; several files go into it\n"
    u"/S  in all subdirectories too, which are made at the target; those emptied by it then go. The name of a "
    u"directory means all in it. /Sn in n levels of them\n"
    u"/V  accepted for older habits: what leaves its volume is always compared\n"
    u"/W  write over the contents of what leaves its volume, /Wn n times\n" //
    TRANSFER_SWITCHES                                                       //
    u"Within a volume files and directories are renamed. To another one they are copied, compared byte by "
    u"byte, and only then removed, attributes and times included; links stay links. A name without "
    u"wildcards may be a directory; wildcards pick files, with /AD directories. A target with wildcards "
    u"gives new names; a directory that has the name already is an error. Descriptions go along. The "
    u"variable COPYCMD may hold /Y or /-Y. The result counters are %_move_files, %_move_dirs and "
    u"%_move_errors.",
    u"move *.log old\\\n"
    u"move /md draft.txt final.txt d:\\text\n"
    u"move /s /[d-30] c:\\mail\\*.eml e:\\mail\n"
    u"move project d:\\",
};

namespace {

class Moving {
public:
    Moving(FILESEARCH& forSearch, const TransferSwitches& switches)
        : transfer(Transfer::Kind::Move, u"move", switches), search(forSearch), masks(search.attributes)
    {}

    void MoveAll(const std::vector<CString>& sources, const CString& targetName)
    {
        const TransferSwitches& how = transfer.switches;
        const bool wantsDirectory = how.intoDirectory || search.deepest > 0 ||
                                    (how.makesTarget && (sources.size() > 1 || MayMeanSeveral(sources[0])));
        using Plain = TransferTarget::Plain;
        const TransferTarget target(targetName, wantsDirectory                     ? Plain::Directory
                                                : IsRespelled(sources, targetName) ? Plain::NewName
                                                                                   : Plain::AsIs);
        if (target.GetKind() == TransferTarget::Kind::Device)
            return transfer.Failed(errors::reservedTarget, targetName);
        if (!target.Prepare(transfer))
            return;
        if (sources.size() > 1)
            transfer.WatchForCollisions();
        for (const CString& source : sources) {
            search.attributes = MasksFor(source, search, masks);
            ExpectMatches(transfer, search, source);
        }
        for (const CString& source : sources) {
            search.attributes = MasksFor(source, search, masks);
            if (target.GetKind() == TransferTarget::Kind::File &&
                (sources.size() > 1 || MeansSeveral(source)))
                return transfer.Failed(errors::targetNoDirectory, target.Text());
            TransferMatches(transfer, search, source, target);
            if (search.deepest > 0)
                RemoveEmptied(source);
        }
    }

    Transfer transfer;

private:
    // Whether the only source is to have its own name in other letters, be it a directory's.
    static bool IsRespelled(const std::vector<CString>& sources, const CString& targetName)
    {
        if (sources.size() != 1 || MayMeanSeveral(sources[0]))
            return false;
        const CString from = FullPathName(WithoutQuotes(sources[0]));
        const CString to = FullPathName(WithoutQuotes(targetName));
        return from != to && EqualNoCase(from, to) && !IsPathSeparator(to.back());
    }

    bool MeansSeveral(const CString& source)
    {
        int count = 0;
        for (bool found = FindFiles(search, source); found && count < 2; found = FindFiles(search))
            ++count;
        CloseDirSearchHandles(search);
        return count > 1;
    }

    // The subdirectories that files came from, or directories that went, and in which nothing is left; of the
    // directory that the search began in only one that was named itself.
    void RemoveEmptied(const CString& source)
    {
        std::unordered_set<CString, NoCaseHash, NoCaseEqual> left;
        for (const CString& from : transfer.TakeMovedFrom())
            for (CString directory = from; left.insert(directory).second;)
                directory = CString(DirectoryPart(WithoutEndSeparators(directory)));
        if (left.empty())
            return;
        transfer.Leave();
        const CString name = WithoutQuotes(source);
        const int highest = !HasWildcards(name) && QueryIsDirectory(name) ? 0 : 1;
        std::vector<CString> emptied;
        StartSearch(search, source);
        SearchedDirectory directory;
        while (NextDirectory(search, directory))
            if (directory.found.depth >= highest && left.contains(directory.found.name))
                emptied.push_back(directory.found.name);
        for (auto one = emptied.rbegin(); one != emptied.rend(); ++one)
            if (RemoveEmptyDirectory(WithoutEndSeparators(*one)) == 0)
                NoteGoneDirectory(WithoutEndSeparators(*one));
    }

    FILESEARCH& search;
    AttributeMasks masks;
};

} // namespace

int Move_Command(CString& arguments)
{
    FILESEARCH search;
    TransferSwitches switches;
    if (const int code = ReadTransfer(arguments, u"DSVw", search, switches))
        return code;
    std::vector<CString> names = SplitArguments(arguments, true, CurrentSyntax());
    if (names.empty())
        return UsageError();
    CString target(u".");
    if (names.size() > 1) {
        target = names.back();
        names.pop_back();
    }
    if (search.deepest == 0)
        std::transform(names.begin(), names.end(), names.begin(), DirectoryItself);
    search.avoidsLinks = true;
    search.intoDirectories =
        search.deepest > 0 && (search.attributes.required & file_attribute::directory) == 0;
    Moving moving(search, switches);
    return moving.transfer.Run([&] { moving.MoveAll(names, target); }, message::filesMoved);
}
