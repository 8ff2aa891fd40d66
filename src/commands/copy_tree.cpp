#include "commands/copy_tree.h"

#include <windows.h>

#include "commands/extra_files.h"
#include "commands/transfer.h"
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

const CommandHelp copyDirectoryHelp = {
    u"Copies a directory with all that is in it.",
    u"COPYDIR [range ...] [/A[:]attributes] [/switches] directory target",
    u"/A  only files and directories with attributes, as DIR /A tells\n"
    u"/D  what is encrypted may be in clear at the target\n"
    u"/J  so that a copy that fails can be gone on with by the same command\n"
    u"/K  copies of read-only files are read-only\n"
    u"/L  copy links as links, not what they lead to\n"
    u"/S  accepted for older habits; /Sn only n levels of subdirectories\n"
    u"/V  compare each copy with its source\n"
    u"/W  delete what the target has and the source has not, unless something failed\n"
    u"/X  clear the archive attribute of the sources\n" //
    TRANSFER_SWITCHES                                   //
    u"The target is made, and holds afterwards what the directory holds, hidden and system files and empty "
    u"directories included; what it held before stays unless /W says otherwise. Directories keep their "
    u"attributes and times. The result counters are %_copydir_files, %_copydir_dirs and %_copydir_errors.",
    u"copydir c:\\work d:\\save\\work\n"
    u"copydir /u /w c:\\photos e:\\photos\n"
    u"copydir /n src backup",
};

const CommandHelp moveDirectoryHelp = {
    u"Moves a directory with all that is in it.",
    u"MOVEDIR [range ...] [/A[:]attributes] [/switches] directory target",
    u"/A  only files and directories with attributes, as DIR /A tells\n"
    u"/D  accepted for older habits: the target is a directory\n"
    u"/S  accepted for older habits; /Sn only n levels of subdirectories\n"
    u"/V  accepted for older habits: what leaves its volume is always compared\n"
    u"/W  write over the contents of what leaves its volume, /Wn n times\n" //
    TRANSFER_SWITCHES                                                       //
    u"Where the target is not there yet, on the same volume, the directory is renamed. Else its files are "
    u"moved one by one, into what the target holds already, and directories that are empty then go. Hidden "
    u"and system files are moved too; links stay links. The result counters are %_movedir_files, "
    u"%_movedir_dirs and %_movedir_errors.",
    u"movedir c:\\work\\old d:\\archive\n"
    u"movedir /o inbox box",
};

namespace {

struct Trees {
    TransferName source;
    TransferName target;
};

// 0, or the result of a reported error.
int ReadTrees(CString& arguments, std::u16string_view own, FILESEARCH& search, TransferSwitches& switches,
              Trees& trees)
{
    search.deepest = allLevels;
    search.attributes.included = AttributeMasks::all;
    if (const int code = ReadTransfer(arguments, own, search, switches))
        return code;
    switches.overHidden = true; // hidden files are taken without being asked for, a second time too
    const std::vector<CString> names = SplitArguments(arguments, true, CurrentSyntax());
    if (names.size() != 2)
        return UsageError();
    trees = {TreeName(names[0]), TreeName(names[1])};
    return result::success;
}

bool SelectsAll(const FILESEARCH& search, const TransferSwitches& switches)
{
    const AttributeMasks& masks = search.attributes;
    return search.ranges.Empty() && search.deepest == allLevels && masks.required == 0 &&
           masks.forbidden == 0 && masks.anyOf == 0 && !switches.work.asks;
}

} // namespace

int CopyDirectory_Command(CString& arguments)
{
    FILESEARCH search;
    TransferSwitches switches;
    Trees trees;
    if (const int code = ReadTrees(arguments, u"DJKLSVWX", search, switches, trees))
        return code;
    search.avoidsLinks = switches.manner.contents.links;
    Transfer transfer(Transfer::Kind::Copy, u"copydir", switches);
    return transfer.Run(
        [&] {
            if (!AreTrees(transfer, trees.source, trees.target))
                return;
            TransferTree(transfer, search, trees.source, trees.target);
            if (switches.mirrors && !transfer.work.IsStopped() && transfer.work.Errors() == 0)
                RemoveExtraTree(transfer, trees.source.directory, trees.target);
        },
        message::filesCopied);
}

int MoveDirectory_Command(CString& arguments)
{
    FILESEARCH search;
    TransferSwitches switches;
    Trees trees;
    if (const int code = ReadTrees(arguments, u"DSVw", search, switches, trees))
        return code;
    search.avoidsLinks = true;
    Transfer transfer(Transfer::Kind::Move, u"movedir", switches);
    return transfer.Run(
        [&] {
            if (!AreTrees(transfer, trees.source, trees.target))
                return;
            const CString from(WithoutEndSeparators(trees.source.directory));
            const CString to(WithoutEndSeparators(trees.target.directory));
            const bool isThere = !EqualNoCase(from, to) && ReadFileAttributes(to);
            if (isThere || !SelectsAll(search, switches))
                return TransferTree(transfer, search, trees.source, trees.target);
            const auto name = [](const CString& full, const CString& shown) {
                return TransferName{CString(DirectoryPart(full)), CString(FileNamePart(full)),
                                    CString(WithoutEndSeparators(shown))};
            };
            EntryFacts facts;
            facts.attributes = ReadFileAttributes(from).value_or(0);
            MoveDirectory(transfer, name(from, trees.source.shown), facts, name(to, trees.target.shown));
        },
        message::filesMoved);
}
