#include "commands/copy.h"

#include <windows.h>

#include "commands/copy_arguments.h"
#include "commands/copy_joined.h"
#include "commands/transfer.h"
#include "commands/transfer_target.h"
#include "core/command_switches.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/search_names.h"
#include "lang/file_messages.h"
#include "platform/file_changes.h"
#include "platform/file_details.h"
#include "platform/file_facts.h"
#include "text/path_names.h"
#include "text/words.h"

const CommandHelp copyHelp = {
    u"Copies files.",
    u"COPY [range ...] [/switches] source ... [target]\n"
    u"COPY [/A] [/B] source [/A] [/B] + source ... [target]",
    u"/A  of the name before it and those behind: text, which ends at a Ctrl+Z and gets one as a target\n"
    u"/A:attributes  files with attributes, as DIR /A tells\n"
    u"/B  of the name before it and those behind: as it stands (unless /A was given, all are)\n"
    u"/D  what is encrypted may be in clear at the target\n"
    u"/J  so that a copy that fails can be gone on with by the same command\n"
    u"/K  copies of read-only files are read-only\n"
    u"/L  of symbolic links copy the links, not what they lead to\n"
    u"/MD make the target directory without asking; several files go into it\n"
    u"/S  in all subdirectories too; those that files come from are made at the target, empty ones are not "
    u"(COPYDIR makes them). /Sn in n levels of them. The target is a directory then, unless sources stand "
    u"with \"+\", which joins all that is found\n"
    u"/V  compare each copy with its source\n"
    u"/W  delete files of the target directory that match the name and are not in the source, of which there "
    u"may be one\n"
    u"/X  clear the archive attribute of the sources\n" //
    TRANSFER_SWITCHES                                   //
    u"A target with wildcards gives the copies names; a directory keeps those of the sources. Several files "
    u"that go to one are joined, as with \"+\" (with /S only with that); without a target the first of the "
    u"sources joined is that. "
    u"\"COPY file+,,\" sets its time. Sources may be CON (typed lines, up to a Ctrl+Z), NUL (nothing), "
    u"CLIP: and TMP0: to TMP2:; targets these, PRN, LPT1 and the like. A source \"@file\" is a list of "
    u"sources.\n"
    u"A copy takes its name only when it is whole: whatever happens, the name stands for the old file or "
    u"for the new one. The variable COPYCMD may hold /Y or /-Y. The result counters are %_copy_files, "
    u"%_copy_dirs and %_copy_errors.",
    u"copy report.doc d:\\save\\\n"
    u"copy /s /u *.cpp;*.h e:\\src\n"
    u"copy *.txt *.bak\n"
    u"copy part1+part2+part3 whole\n"
    u"copy clip: note.txt",
};

namespace {

class Copying {
public:
    Copying(const CopyArguments& given, FILESEARCH& forSearch, const TransferSwitches& switches)
        : transfer(Transfer::Kind::Copy, u"copy", switches), arguments(given), search(forSearch)
    {}

    void CopyAll()
    {
        if (arguments.touches)
            return Touch();
        const TransferTarget target = Target();
        const bool isFile = target.GetKind() == TransferTarget::Kind::File;
        if (transfer.switches.mirrors && !MayMirror(target))
            return;
        if (arguments.joins || target.GetKind() == TransferTarget::Kind::Device || FromDevice())
            return Join(target);
        if (!isFile) {
            if (!target.Prepare(transfer))
                return;
            for (const CopySource& source : arguments.sources)
                ExpectMatches(transfer, search, source.text);
            for (const CopySource& source : arguments.sources)
                TransferMatches(transfer, search, source.text, target);
            return;
        }
        if (arguments.sources.size() > 1 || QueryIsDirectory(WithoutQuotes(arguments.sources[0].text)))
            return transfer.Failed(errors::targetNoDirectory, target.Text());
        CopyToFile(target);
    }

    Transfer transfer;

private:
    TransferTarget Target() const
    {
        using Plain = TransferTarget::Plain;
        const bool directory = (search.deepest > 0 && !arguments.joins) || MakesDirectory();
        if (!arguments.target.empty())
            return TransferTarget(arguments.target, directory ? Plain::Directory : Plain::AsIs);
        return arguments.joins ? TransferTarget(arguments.sources[0].text, Plain::AsIs)
                               : TransferTarget(u".", Plain::Directory);
    }

    // What /MD makes is a directory wherever that makes sense.
    bool MakesDirectory() const
    {
        const CString& source = arguments.sources[0].text;
        return transfer.switches.makesTarget && !arguments.joins &&
               (arguments.sources.size() > 1 || MayMeanSeveral(source) ||
                QueryIsDirectory(WithoutQuotes(source)));
    }

    // New names tell nothing about what is missing, nor do several directories; a list is no pattern.
    bool MayMirror(const TransferTarget& target)
    {
        const CString& source = arguments.sources.back().text;
        const bool isOne =
            arguments.sources.size() == 1 && source.front() != u'@' && SplitSearchNames(source).size() == 1;
        const bool isDirectory = target.GetKind() == TransferTarget::Kind::Directory;
        if (!isDirectory)
            transfer.Failed(errors::targetNoDirectory, target.Text());
        else if (!isOne)
            transfer.Failed(errors::mirrorsOne, source);
        return isDirectory && isOne;
    }

    bool FromDevice() const
    {
        for (const CopySource& source : arguments.sources)
            if (IsDeviceSource(source.text))
                return true;
        return false;
    }

    void Join(const TransferTarget& target)
    {
        std::vector<JoinedPiece> pieces;
        for (const CopySource& source : arguments.sources)
            if (!AddPieces(transfer, search, source, pieces))
                return; // a part is missing: what is there already is worth more than the rest
        if (pieces.empty() || !arguments.joins || !arguments.target.empty() || IsDeviceSource(pieces[0].name))
            return WriteJoined(transfer, pieces, target, arguments.targetContents);
        // Without a target the first of the files grows, even where a pattern found it.
        pieces[0].chosen = true;
        WriteJoined(transfer, pieces, TransferTarget(pieces[0].shown, TransferTarget::Plain::AsIs),
                    arguments.targetContents);
    }

    // One file is copied; more of them are joined.
    void CopyToFile(const TransferTarget& target)
    {
        const CopySource& source = arguments.sources[0];
        std::vector<JoinedPiece> pieces;
        const bool any = transfer.work.ForEachFile(search, source.text, [&] {
            pieces.push_back(
                {search.fullName, search.name, source.contents, search.literal, search.file.facts});
        });
        if (!any)
            return transfer.Failed(ERROR_FILE_NOT_FOUND, WithoutQuotes(source.text));
        const bool asText = source.contents == Contents::Text || arguments.targetContents == Contents::Text;
        if (pieces.size() != 1 || asText) {
            if (!pieces.empty())
                WriteJoined(transfer, pieces, target, arguments.targetContents);
            return;
        }
        TransferName place;
        const JoinedPiece& piece = pieces[0];
        if (target.Prepare(transfer) && target.Place(u"", FileNamePart(piece.name), place))
            transfer.Do({CString(DirectoryPart(piece.name)), CString(FileNamePart(piece.name)), piece.shown},
                        piece.facts, place);
    }

    void Touch()
    {
        for (const CopySource& source : arguments.sources) {
            const bool any = transfer.work.ForEachFile(search, source.text, [&] {
                NewFileTimes times;
                times.written = FileTimeNow();
                const unsigned failed =
                    transfer.work.Pretends() ? 0 : ChangeFileTimes(search.fullName, times);
                failed != 0 ? transfer.Failed(failed, search.name) : transfer.Did(search.name, {});
            });
            if (!any)
                transfer.Failed(ERROR_FILE_NOT_FOUND, WithoutQuotes(source.text));
        }
    }

    const CopyArguments& arguments;
    FILESEARCH& search;
};

} // namespace

int Copy_Command(CString& arguments)
{
    const CString original = arguments;
    FILESEARCH search;
    TransferSwitches switches;
    // Alone they tell what is text; with letters behind it /A asks for attributes.
    TakeSwitchWord(arguments, u"A");
    TakeSwitchWord(arguments, u"B");
    if (const int code = ReadTransfer(arguments, u"DJKLSVWX", search, switches))
        return code;
    const CopyArguments given =
        ReadCopyArguments(original, arguments, CurrentSyntax(),
                          [](const CString& name) { return ReadFileAttributes(name).has_value(); });
    if (given.sources.empty())
        return UsageError();
    search.attributes.forbidden |= file_attribute::directory;
    search.intoDirectories = true;
    Copying copying(given, search, switches);
    return copying.transfer.Run([&] { copying.CopyAll(); }, message::filesCopied);
}
