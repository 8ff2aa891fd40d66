#include "commands/rename.h"

#include <windows.h>

#include "commands/extra_files.h"
#include "commands/file_work.h"
#include "core/command_switches.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/description_changes.h"
#include "files/target_names.h"
#include "lang/file_messages.h"
#include "platform/file_changes.h"
#include "platform/file_facts.h"
#include "text/compare.h"
#include "text/path_names.h"
#include "text/words.h"

const CommandHelp renameHelp = {
    u"Renames files and directories.",
    u"REN [range ...] [/A[:]attributes] [/E] [/N] [/P] [/Q] [/S] [/T] name ... newname",
    u"/A  files with attributes, as DIR /A tells\n" FILE_WORK_SWITCHES u"/S  in all subdirectories too, never through links to directories\n"
    u"The new name stands in the directory of the old one unless it names another one on the same drive; "
    u"one that exists takes the file in under its old name. \"*\" and \"?\" in the new name stand for what "
    u"they meet in the old one. Wildcards in the old name pick files, with /AD directories; a name without "
    u"wildcards may be either. A name that is taken is an error. Descriptions go along. The result counters "
    u"are %_ren_files, %_ren_dirs and %_ren_errors.",
    u"ren draft.txt final.txt\n"
    u"ren *.jpeg *.jpg\n"
    u"ren /[d-1] *.log old\\*.log\n"
    u"ren /s *.htm *.html",
};

namespace {

class Renaming {
public:
    Renaming(const FileWorkOptions& options, const CString& newName)
        : work(u"ren", options, BatchManners::Silent), target(newName), hasDirectory(HasDirectory(newName))
    {
        if (hasDirectory && !HasWildcards(newName) && QueryIsDirectory(newName))
            target = JoinPath(newName, u"*");
    }

    void RenameAll(FILESEARCH& search, const CString& argument)
    {
        work.ForEachDirectory(search, argument,
                              [this](const SearchedDirectory& directory) { RenameIn(directory); });
    }

    FileWork work;

private:
    void RenameIn(const SearchedDirectory& directory)
    {
        DescriptionChanges descriptions(directory.found.name);
        for (const FoundFile& file : directory.found.files)
            if (directory.literal || !IsPassedOver(file.name))
                Rename(directory, file, descriptions);
        if (const unsigned failed = descriptions.Write())
            work.Failed(failed, directory.found.name);
    }

    void Rename(const SearchedDirectory& directory, const FoundFile& file, DescriptionChanges& descriptions)
    {
        const CString shown = CString(directory.shown) + file.name;
        CString newName;
        if (!MakeWildcardName(newName, target, file.name)) {
            work.Failed(ERROR_FILENAME_EXCED_RANGE, shown);
            return;
        }
        const CString from = PathOfEntry(directory.found.name, file.name);
        const CString to = hasDirectory ? FullPathName(newName) : CString(directory.found.name) + newName;
        if (from == to)
            work.Passed(); // has the name already
        if (from == to || !work.Wants(message::askRename, shown))
            return;
        if (IsReservedName(to)) {
            work.Failed(errors::reservedTarget, newName);
            return;
        }
        if (const unsigned failed = work.Pretends() ? WhyNot(from, to) : RenameFile(from, to, false)) {
            // Which of the two names is the trouble is not told by the number.
            const bool aboutNewName = failed == ERROR_ALREADY_EXISTS || failed == ERROR_FILE_EXISTS ||
                                      failed == ERROR_INVALID_NAME || failed == ERROR_PATH_NOT_FOUND;
            work.Failed(failed, aboutNewName ? newName : shown);
            return;
        }
        if (!work.Pretends()) {
            CarryDescription(directory, file, to, descriptions);
            NotifyOfChange(FolderChange::FileRenamed, from, to);
        }
        const bool isDirectory = file.facts.IsDirectory();
        isDirectory ? work.DidDirectory(message::nameAlone, shown, newName)
                    : work.Did(message::nameAlone, shown, newName);
    }

    // What can be known of a renaming that is not done; 0: nothing against it.
    static unsigned WhyNot(const CString& from, const CString& to)
    {
        if (!QueryIsDirectory(DirectoryPart(to)))
            return ERROR_PATH_NOT_FOUND;
        return ReadFileAttributes(to) && !EqualNoCase(from, to) ? ERROR_ALREADY_EXISTS : 0;
    }

    static void CarryDescription(const SearchedDirectory& directory, const FoundFile& file, const CString& to,
                                 DescriptionChanges& descriptions)
    {
        if (EqualNoCase(DirectoryPart(to), directory.found.name))
            descriptions.Rename(file.name, FileNamePart(to));
        else
            descriptions.MoveTo(DirectoryPart(to), file.name, FileNamePart(to));
    }

    CString target;
    bool hasDirectory;
};

} // namespace

int Rename_Command(CString& arguments)
{
    FILESEARCH search;
    FileWorkOptions options;
    std::uint64_t flags = 0;
    if (const int code = ReadFileWork(arguments, u"S", search, options, flags))
        return code;
    std::vector<CString> names = SplitArguments(arguments, true, CurrentSyntax());
    if (names.size() < 2)
        return UsageError();
    const CString newName(WithoutQuotes(names.back()));
    names.pop_back();
    if (newName.empty())
        return UsageError();
    if (flags != 0)
        search.deepest = allLevels;
    search.avoidsLinks = true;
    const AttributeMasks masks = search.attributes;
    Renaming renaming(options, newName);
    const auto all = [&] {
        for (const CString& argument : names) {
            const CString name = DirectoryItself(argument);
            if (PicksByForm(name) && !HasWildcards(WithoutQuotes(name))) {
                renaming.work.Failed(ERROR_INVALID_NAME,
                                     WithoutQuotes(name)); // all in it cannot have one name
                continue;
            }
            search.attributes = MasksFor(name, search, masks);
            renaming.RenameAll(search, name);
        }
    };
    renaming.work.Do(all, message::filesRenamed);
    return renaming.work.Finish(message::filesRenamed);
}
