#include "commands/delete.h"

#include <windows.h>

#include "commands/file_work.h"
#include "core/command_switches.h"
#include "engine/break.h"
#include "engine/console_entry.h"
#include "engine/inifile.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/description_changes.h"
#include "files/descriptions.h"
#include "lang/file_messages.h"
#include "platform/file_changes.h"
#include "platform/file_details.h"
#include "platform/file_facts.h"
#include "text/compare.h"
#include "text/numbers.h"
#include "text/path_names.h"
#include "text/words.h"

const CommandHelp deleteHelp = {
    u"Deletes files.",
    u"DEL [range ...] [/A[:]attributes] [/E] [/F] [/K] [/N] [/P] [/Q] [/R] [/S] [/T] [/W[passes]] [/X] [/Y] "
    u"[/Z] file ...",
    u"/A  files with attributes, as DIR /A tells\n" FILE_WORK_SWITCHES u"/F  read-only files too\n"
    u"/K  delete for good, even if RecycleBin says otherwise\n"
    u"/R  move to the recycle bin\n"
    u"/S  in all subdirectories too, never through links to directories\n"
    u"/W  write over the contents and named streams first, as often as told or as DelWipePasses says; a "
    u"file that has other names (hard links) is refused\n"
    u"/X  with /S, remove the subdirectories that are empty then\n"
    u"/Y  do not ask whether all files of a directory are meant\n"
    u"/Z  hidden, system and read-only files too\n"
    u"The name of a directory means all files in it, which is asked about first, in lists too, unless /Q, "
    u"/Y or DelGlobalQuery=No says otherwise. Ranges pick files, as DIR explains. Descriptions go with their "
    u"files. The result counters are %_del_files, %_del_dirs and %_del_errors.",
    u"del *.obj *.pdb\n"
    u"del /s /x /[d-30] C:\\logs\\*.log\n"
    u"del /n /[s10M] *\n"
    u"del /w3 secret.txt",
};

namespace {

struct DeleteOptions {
    bool readOnly = false;
    bool forGood = false;
    bool recycle = false;
    bool emptyDirectories = false;
    bool unasked = false;
    int wipePasses = 0; // 0: contents are left on the disk
};

class Deletion {
public:
    Deletion(const FileWorkOptions& workOptions, const DeleteOptions& deleteOptions)
        : work(u"del", workOptions, BatchManners::Silent), options(deleteOptions),
          usesBin(options.recycle || (aIniFile.RecycleBin && !options.forGood && options.wipePasses == 0))
    {}

    void Delete(FILESEARCH& search, const CString& argument)
    {
        if (!IsEverythingWanted(search, argument))
            return;
        std::vector<Emptied> below;
        const bool named = EqualNoCase(FileNamePart(WithoutQuotes(argument)), DescriptionFileName());
        work.ForEachDirectory(search, argument, [&](const SearchedDirectory& directory) {
            DeleteIn(directory, named || directory.literal || !aIniFile.Descriptions);
            if (directory.found.depth > 0)
                below.push_back({directory.found.name, directory.shown});
        });
        if (options.emptyDirectories)
            RemoveEmpty(below);
    }

    FileWork work;

private:
    struct Emptied {
        CString name; // full, with a separator at the end
        CString shown;
    };

    // "Delete all files of this directory" is asked about once; without a person it takes a switch to say so.
    bool IsEverythingWanted(FILESEARCH& search, const CString& argument)
    {
        if (options.unasked || !aIniFile.DelGlobalQuery)
            return true;
        StartSearch(search, argument);
        if (search.whole.empty())
            return true;
        if (MayAsk())
            return QueryInputChar(message::askDeleteAll, search.whole, u"YN", u'N') == u'Y';
        work.Failed(errors::needsYes, search.whole);
        return false;
    }

    // Unless its name was given, a description file goes only when it describes nothing that stays.
    void DeleteIn(const SearchedDirectory& directory, bool withDescriptions)
    {
        DescriptionChanges descriptions(directory.found.name);
        const FoundFile* last = nullptr;
        for (const FoundFile& file : directory.found.files) {
            if (!withDescriptions && EqualNoCase(file.name, DescriptionFileName()))
                last = &file;
            else
                DeleteFile(directory, file, descriptions);
        }
        if (const unsigned failed = descriptions.Write())
            work.Failed(failed, directory.found.name);
        if (last && ReadFileAttributes(PathOfEntry(directory.found.name, last->name)) &&
            !DescribesAnything(directory.found.name))
            DeleteFile(directory, *last, descriptions);
    }

    static bool DescribesAnything(const CString& directory)
    {
        const DescriptionList list = ReadDescriptions(directory);
        if (list.failure != 0)
            return true; // nobody knows
        FILESEARCH rest;
        rest.attributes = AttributeMasks::Everything();
        for (bool found = FindFiles(rest, AddQuotes(directory + u"*")); found; found = FindFiles(rest))
            if (!list.Find(rest.file.name).empty())
                return true;
        return false;
    }

    void DeleteFile(const SearchedDirectory& directory, const FoundFile& file,
                    DescriptionChanges& descriptions)
    {
        const CString shown = CString(directory.shown) + file.name;
        if (!work.Wants(message::askDelete, shown))
            return;
        const CString name = PathOfEntry(directory.found.name, file.name);
        if (const unsigned failed = DeleteFromDisk(name, file.facts.attributes)) {
            work.Failed(failed, shown);
            return;
        }
        if (!work.Pretends()) {
            descriptions.Remove(file.name);
            NotifyOfChange(FolderChange::FileDeleted, name);
        }
        work.Did(message::deleting, shown);
    }

    unsigned DeleteFromDisk(const CString& name, std::uint32_t attributes)
    {
        const bool readOnly = (attributes & FILE_ATTRIBUTE_READONLY) != 0;
        if (readOnly && !options.readOnly)
            return ERROR_ACCESS_DENIED;
        const bool wipes = options.wipePasses > 0 && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0;
        if (wipes && !options.recycle && HasOtherNames(name))
            return errors::hasOtherNames;
        if (work.Pretends())
            return 0;
        if (usesBin)
            if (const auto code = PutIntoBin(name, options.recycle))
                return *code;
        if (readOnly)
            if (const unsigned failed =
                    ChangeAttributes(name, attributes & ~std::uint32_t{FILE_ATTRIBUTE_READONLY}))
                return failed;
        if (wipes)
            if (const unsigned failed = Wipe(name))
                return failed;
        return EraseFile(name);
    }

    // Contents that are still reached by another name are not lost by the way.
    static bool HasOtherNames(const CString& name)
    {
        const std::optional<FileIdentity> identity = IdentifyFile(name);
        return identity && identity->links > 1;
    }

    unsigned Wipe(const CString& name)
    {
        for (const FileStream& stream : NamedStreams(name))
            if (const unsigned failed =
                    OverwriteContents(name + stream.name, options.wipePasses, ThrowIfBroken))
                return failed;
        return OverwriteContents(name, options.wipePasses, ThrowIfBroken);
    }

    // Deepest first; those that still hold something stay without a word.
    void RemoveEmpty(const std::vector<Emptied>& directories)
    {
        for (auto directory = directories.rbegin(); directory != directories.rend() && !work.Pretends();
             ++directory) {
            const std::u16string_view name = WithoutEndSeparators(directory->name);
            if (RemoveEmptyDirectory(name) == 0) {
                work.DidDirectory(message::removedDirectory, WithoutEndSeparators(directory->shown));
                NoteGoneDirectory(name);
            }
        }
    }

    DeleteOptions options;
    bool usesBin;
};

// Takes "/W" and "/Wn" out of the arguments. 0, or the result of a reported error.
int TakeWipeSwitch(CString& arguments, int& passes)
{
    CString count;
    if (!TakeSwitchLetters(arguments, u"W", count))
        return result::success;
    passes = static_cast<int>(aIniFile.DelWipePasses);
    if (count.empty())
        return result::success;
    const std::optional<std::int64_t> number = ParseInteger(count);
    if (number.value_or(0) < 1 || *number > 99)
        return MVError(errors::invalidNumber, count);
    passes = static_cast<int>(*number);
    return result::success;
}

} // namespace

int Delete_Command(CString& arguments)
{
    FILESEARCH search;
    FileWorkOptions workOptions;
    DeleteOptions options;
    if (const int code = TakeWipeSwitch(arguments, options.wipePasses))
        return code;
    std::uint64_t flags = 0;
    if (const int code = ReadFileWork(arguments, u"FKRSXYZ", search, workOptions, flags))
        return code;
    const auto has = [flags](int bit) { return (flags >> bit & 1) != 0; };
    const std::vector<CString> names = SplitArguments(arguments, true, CurrentSyntax());
    if (names.empty())
        return UsageError();
    options.readOnly = has(0) || has(6);
    options.forGood = has(1);
    options.recycle = has(2);
    options.emptyDirectories = has(4);
    options.unasked = has(5) || workOptions.quiet || workOptions.pretends || workOptions.asks;
    if (has(3))
        search.deepest = allLevels;
    if (has(6))
        search.attributes.included = AttributeMasks::all;
    search.attributes.forbidden |= file_attribute::directory;
    search.intoDirectories = true;
    search.avoidsLinks = true;
    Deletion deletion(workOptions, options);
    const auto all = [&] {
        for (const CString& name : names)
            deletion.Delete(search, name);
    };
    deletion.work.Do(all, message::filesDeleted);
    return deletion.work.Finish(message::filesDeleted);
}
