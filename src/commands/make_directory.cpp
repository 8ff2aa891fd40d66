#include "commands/make_directory.h"

#include <windows.h>

#include "commands/file_work.h"
#include "core/command_switches.h"
#include "engine/directory_entry.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/directory_name.h"
#include "files/known_directories.h"
#include "lang/file_messages.h"
#include "platform/directory.h"
#include "platform/file_changes.h"
#include "platform/file_facts.h"
#include "text/path_names.h"
#include "text/words.h"

const CommandHelp makeDirectoryHelp = {
    u"Makes directories.",
    u"MD [/D] [/E] [/N] [/P] [/Q] [/S] [/T] directory ...",
    u"/D  make the (last) directory the current one\n" //
    FILE_WORK_SWITCHES                                 //
    u"/S  accepted for older habits: directories above that are missing are always made\n"
    u"A directory that exists already is an error. The result counters are %_md_dirs and %_md_errors.",
    u"md src\\include\\detail\n"
    u"md \"My Documents\" backup\n"
    u"md /d new project",
};

namespace {

unsigned Make(const CString& name, bool pretends)
{
    if (IsReservedName(FullPathName(name)))
        return errors::reservedTarget;
    if (!pretends)
        return MakeDirectoryWithParents(name, NoteNewDirectory);
    return ReadFileAttributes(name) ? ERROR_ALREADY_EXISTS : 0;
}

} // namespace

int MakeDirectory_Command(CString& arguments)
{
    FileWorkOptions options;
    std::uint64_t flags = 0;
    if (const int code = ReadWorkSwitches(arguments, u"DS", options, flags))
        return code;
    const std::vector<CString> names = SplitArguments(arguments, true, CurrentSyntax());
    if (names.empty())
        return UsageError();
    FileWork work(u"md", options, BatchManners::Silent);
    CString last;
    for (const CString& argument : names) {
        // A separator behind the name says nothing; the system would not take it everywhere.
        const CString name(WithoutEndSeparators(CleanDirectoryName(argument)));
        if (!work.Wants(message::askMakeDirectory, name))
            continue;
        if (const unsigned failed = Make(name, work.Pretends())) {
            work.Failed(failed, name);
            continue;
        }
        work.DidDirectory(message::madeDirectory, name);
        if (work.Pretends())
            continue;
        NotifyOfChange(FolderChange::DirectoryCreated, name);
        last = name;
    }
    if ((flags & 1) != 0 && !last.empty() && !MakeCurrent(last))
        work.Failed(0, last);
    return work.Finish(options.totalsOnly ? message::directoriesMade : 0);
}
