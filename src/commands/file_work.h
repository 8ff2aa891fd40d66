// What commands that change files have in common: switches, questions, the line for each file, errors, totals
// and result counters. A command reads its switches, makes a FileWork and, for each file that its search
// finds,
//
//     if (!work.Wants(question, name)) continue;      // also ends the loop, see IsStopped()
//     if (!work.Pretends())
//         if (const unsigned failed = ...change the file...) { work.Failed(failed, name); continue; }
//     work.Did(message, name);
//
// all of it inside Do(), and ends with `return work.Finish(totals)`.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

#include "commands/search_switches.h"
#include "files/file_search.h"
#include "platform/file_changes.h"
#include "text/cstring.h"

struct FileWorkOptions {
    bool ignoresErrors = false; // /E: errors are counted, but not shown
    bool pretends = false;      // /N
    bool asks = false;          // /P
    bool quiet = false;         // /Q: no lines, no totals
    bool totalsOnly = false;    // /T
};

// The help of these switches, for each command's own.
#define FILE_WORK_SWITCHES                                                                                   \
    u"/E  show no error messages\n"                                                                          \
    u"/N  change nothing, show only what would be done\n"                                                    \
    u"/P  ask before each file: Y yes, N no, R the rest without asking, Esc or Q no more\n"                  \
    u"/Q  show neither names nor totals\n"                                                                   \
    u"/T  show totals only\n"

// Takes these switches and those in `own` out of the arguments; `ownFlags` gets a bit for each of `own`. 0,
// or the result of a reported error.
int ReadWorkSwitches(CString& arguments, std::u16string_view own, FileWorkOptions& options,
                     std::uint64_t& ownFlags);
// The ranges and the attribute switch as well, for commands that search.
int ReadFileWork(CString& arguments, std::u16string_view own, FILESEARCH& search, FileWorkOptions& options,
                 std::uint64_t& ownFlags);

// Whether an argument stands for what is in a directory: it holds wildcards, or ends with "\", "." or "..".
bool PicksByForm(std::u16string_view argument);
// For commands that take a directory as a whole: the argument without the "\" that completion puts behind it.
CString DirectoryItself(const CString& argument);
// Such arguments and searches of subdirectories mean files, unless /AD asked for directories; a plain name
// means either.
AttributeMasks MasksFor(const CString& argument, const FILESEARCH& search, const AttributeMasks& asked);

// Has a change known: to the database of directories that CD searches, and to the desktop's folder windows
// when the setting SHChangeNotify asks for it.
void NotifyOfChange(FolderChange change, std::u16string_view name, std::u16string_view newName = {});

// For a directory that was removed (a full name): its description goes too, and the change is made known. 0,
// or the error number that kept the description.
unsigned NoteGoneDirectory(std::u16string_view name);

// Puts a file or directory into the recycle bin: 0, or the error to be told. Nothing where its drive has no
// bin and `only` does not insist on one: then it may be deleted for good.
std::optional<unsigned> PutIntoBin(const CString& name, bool only);

// Lines that a batch file of the everyday kind (.BAT, .CMD) does not expect are left out there.
enum class BatchManners { Silent, TotalsOnly };

class FileWork {
public:
    // The counters are %_NAME_files, %_NAME_dirs and %_NAME_errors.
    FileWork(std::u16string_view counterName, const FileWorkOptions& switches, BatchManners manners);

    bool Pretends() const { return options.pretends; }
    // No more is to be done: the person said so.
    bool IsStopped() const { return stopped; }

    // Has the search's matches of the argument visited, one directory after the other. What could not be
    // searched, and a name that nothing matches, are errors.
    void ForEachDirectory(FILESEARCH& search, const CString& argument,
                          const std::function<void(const SearchedDirectory&)>& visit);
    // The same, one file after the other. Finding nothing is left to the caller: false then.
    bool ForEachFile(FILESEARCH& search, const CString& argument, const std::function<void()>& visit);

    // Whether to change this one; asks with message `question` under /P.
    bool Wants(unsigned question, std::u16string_view name);

    // Counts and shows it: message `line` with the name, and behind it "-> newName" when there is one.
    void Did(unsigned line, std::u16string_view name, std::u16string_view newName = {});
    void DidDirectory(unsigned line, std::u16string_view name, std::u16string_view newName = {});
    // Counts a file that was shown already.
    void Count() { ++files; }
    // Like Wants, but for a question that `asks` tells to ask, until the person answers R.
    bool Confirms(bool& asks, unsigned question, std::u16string_view name);
    // Counts one that needed no change: to find nothing but such is no error.
    void Passed() { ++passed; }
    // The same for something worth a line.
    void Noted(unsigned line, std::u16string_view name);

    // Counts an error and shows it, a Windows error number or one of the shell's codes.
    void Failed(unsigned code, std::u16string_view name);
    std::int64_t Errors() const { return errors; }
    // As if the person had said so.
    void Stop() { stopped = true; }

    // Does the work. When it is broken off, what was done till then is told and counted.
    void Do(const std::function<void()>& body, unsigned totals);

    // Shows the totals with one of three messages from `totals` on: for no file, one, and more. Sets the
    // counters and answers the command's result.
    int Finish(unsigned totals);
    // The same for a command that shows totals of its own: doing nothing is no failure.
    int FinishQuietly();

private:
    void Show(unsigned line, std::u16string_view name, std::u16string_view newName);

    std::u16string_view counter;
    FileWorkOptions options;
    bool showsLines;
    bool showsTotals;
    bool stopped = false;
    std::int64_t files = 0;
    std::int64_t directories = 0;
    std::int64_t errors = 0;
    std::int64_t passed = 0;
};
