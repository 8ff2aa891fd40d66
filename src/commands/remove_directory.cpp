#include "commands/remove_directory.h"

#include <windows.h>

#include "commands/file_work.h"
#include "commands/transfer_target.h"
#include "commands/tree_removal.h"
#include "core/command_switches.h"
#include "engine/console_entry.h"
#include "engine/inifile.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/directory_name.h"
#include "lang/file_messages.h"
#include "platform/file_changes.h"
#include "platform/file_facts.h"
#include "text/path_names.h"
#include "text/words.h"

const CommandHelp removeDirectoryHelp = {
    u"Removes directories.",
    u"RD [range ...] [/A[:]attributes] [/E] [/K] [/N] [/P] [/Q] [/R] [/S] [/T] directory ...",
    u"/S  remove the directory with all that is in it, after a question\n"
    u"/A  directories with attributes, as DIR /A tells\n"
    u"/Q  ask nothing, show nothing\n"
    u"/E  show no error messages\n"
    u"/K  delete for good, even if RecycleBin says otherwise\n"
    u"/N  change nothing, show only what would be done\n"
    u"/P  ask before each directory: Y yes, N no, R the rest without asking, Esc or Q no more\n"
    u"/R  move to the recycle bin\n"
    u"/T  show totals only\n"
    u"Without /S a directory must be empty. Wildcards pick directories. Of a link to a directory the link "
    u"is removed, and what it leads to stays. The result counters are %_rd_dirs and %_rd_errors.",
    u"rd empty\n"
    u"rd /s /q build\n"
    u"rd /n /s *.tmp",
};

namespace {

enum OwnSwitch : std::uint64_t { keepNothing = 1, recycle = 2, withContents = 4 }; // "KRS"

class Removal {
public:
    Removal(const FileWorkOptions& options, std::uint64_t flags)
        : work(u"rd", options, BatchManners::Silent), withTree((flags & withContents) != 0),
          asksForTree(withTree && !options.quiet && !options.asks && !options.pretends),
          onlyIntoBin((flags & recycle) != 0),
          usesBin((flags & recycle) != 0 || (aIniFile.RecycleBin && (flags & keepNothing) == 0))
    {}

    void Remove(const CString& name, const CString& shown)
    {
        const std::optional<std::uint32_t> attributes = ReadFileAttributes(name);
        unsigned failed = attributes ? 0 : GetLastError();
        if (attributes && (*attributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
            failed = ERROR_DIRECTORY;
        if (failed == 0 && (!work.Wants(message::askRemoveDirectory, shown) || !IsTreeWanted(shown)))
            return;
        if (failed == 0)
            failed = RemoveFromDisk(name, (*attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0);
        if (failed != 0) {
            work.Failed(failed, shown);
            return;
        }
        work.DidDirectory(message::removedDirectory, shown);
        if (work.Pretends())
            return;
        if (const unsigned unwritten = NoteGoneDirectory(FullPathName(name)))
            work.Failed(unwritten, shown);
    }

    // With `picks` ranges or attributes say whether even one that is named goes.
    void RemoveAll(FILESEARCH& search, const CString& argument, bool picks)
    {
        const CString name(WithoutEndSeparators(CleanDirectoryName(argument)));
        const bool several = MayMeanSeveral(argument) && !ReadFileAttributes(name);
        if (!several && !picks)
            return Remove(name, name);
        // Its own name takes a hidden one, too.
        const AttributeMasks masks = search.attributes;
        if (!several)
            search.attributes.included = AttributeMasks::all;
        bool any = false;
        const bool quoted = !several || argument.Find(u'"') != CString::npos;
        const CString found = quoted ? CString(u"\"") + name + u"\"" : name;
        for (bool more = FindFiles(search, found); more; more = FindFiles(search)) {
            any = true;
            Remove(search.fullName, search.name);
        }
        ForEachFailure(search, [this](unsigned code, const CString& failed) { work.Failed(code, failed); });
        if (!any && search.error == 0)
            work.Failed(ERROR_FILE_NOT_FOUND, name);
        search.attributes = masks;
    }

    FileWork work;

private:
    // Everything in a tree is gone at once: without a person it takes /Q to say so.
    bool IsTreeWanted(const CString& name)
    {
        if (!asksForTree)
            return true;
        if (!MayAsk()) {
            work.Failed(errors::needsQuiet, name);
            return false;
        }
        return QueryInputChar(message::askRemoveTree, name, u"YN", u'N') == u'Y';
    }

    unsigned RemoveFromDisk(const CString& name, bool isLink)
    {
        // The bin would take the contents as well.
        if (!withTree && !isLink && (usesBin || work.Pretends()) && !IsEmptyDirectory(name))
            return ERROR_DIR_NOT_EMPTY;
        if (work.Pretends())
            return 0;
        if (usesBin && !isLink)
            if (const auto code = PutIntoBin(name, onlyIntoBin))
                return *code;
        if (withTree && !isLink)
            return RemoveTree(name, true,
                              [this](unsigned code, const CString& part) { work.Failed(code, part); });
        return RemoveEmptyDirectory(name);
    }

    bool withTree;
    bool asksForTree;
    bool onlyIntoBin;
    bool usesBin;
};

} // namespace

int RemoveDirectory_Command(CString& arguments)
{
    FILESEARCH search;
    FileWorkOptions options;
    std::uint64_t flags = 0;
    if (const int code = ReadFileWork(arguments, u"KRS", search, options, flags))
        return code;
    const std::vector<CString> names = SplitArguments(arguments, true, CurrentSyntax());
    if (names.empty())
        return UsageError();
    const AttributeMasks& masks = search.attributes;
    const bool picks =
        !search.ranges.Empty() || masks.required != 0 || masks.forbidden != 0 || masks.anyOf != 0;
    search.attributes.required |= file_attribute::directory;
    Removal removal(options, flags);
    const auto all = [&] {
        for (const CString& argument : names)
            removal.RemoveAll(search, argument, picks);
    };
    const unsigned totals = options.totalsOnly ? message::directoriesRemoved : 0;
    removal.work.Do(all, totals);
    return removal.work.Finish(totals);
}
