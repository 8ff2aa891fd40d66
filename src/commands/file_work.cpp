#include "commands/file_work.h"

#include <windows.h>

#include "core/command_switches.h"
#include "engine/break.h"
#include "engine/console_entry.h"
#include "engine/inifile.h"
#include "engine/internal_entry.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/description_changes.h"
#include "files/known_directories.h"
#include "lang/file_messages.h"
#include "platform/file_facts.h"
#include "text/path_names.h"
#include "text/words.h"

int ReadWorkSwitches(CString& arguments, std::u16string_view own, FileWorkOptions& options,
                     std::uint64_t& ownFlags)
{
    constexpr std::u16string_view shared = u"ENPQT";
    std::uint64_t flags = 0;
    if (const int code = ReadSwitches(arguments, CString(shared) + own, flags))
        return code;
    options.ignoresErrors = (flags & 1) != 0;
    options.pretends = (flags & 2) != 0;
    options.asks = (flags & 4) != 0;
    options.quiet = (flags & 8) != 0;
    options.totalsOnly = (flags & 16) != 0;
    ownFlags = flags >> shared.size();
    return result::success;
}

int ReadFileWork(CString& arguments, std::u16string_view own, FILESEARCH& search, FileWorkOptions& options,
                 std::uint64_t& ownFlags)
{
    if (const int code = TakeSelection(arguments, search))
        return code;
    return ReadWorkSwitches(arguments, own, options, ownFlags);
}

bool PicksByForm(std::u16string_view argument)
{
    const CString name = WithoutQuotes(argument);
    const std::u16string_view last = FileNamePart(name);
    return HasWildcards(name) || last.empty() || last == u"." || last == u"..";
}

CString DirectoryItself(const CString& argument)
{
    const CString name = WithoutQuotes(argument);
    const std::u16string_view bare = WithoutEndSeparators(name);
    if (bare.size() == name.size() || FileNamePart(bare).empty() || PicksByForm(bare))
        return argument;
    return argument.Find(u'"') == CString::npos ? CString(bare) : CString(u"\"") + bare + u"\"";
}

AttributeMasks MasksFor(const CString& argument, const FILESEARCH& search, const AttributeMasks& asked)
{
    AttributeMasks masks = asked;
    const bool picks = search.deepest > 0 || PicksByForm(argument);
    if (picks && (asked.required & file_attribute::directory) == 0)
        masks.forbidden |= file_attribute::directory;
    return masks;
}

void NotifyOfChange(FolderChange change, std::u16string_view name, std::u16string_view newName)
{
    if (change == FolderChange::DirectoryCreated)
        NoteNewDirectory(FullPathName(name));
    else if (change == FolderChange::DirectoryDeleted)
        NoteRemovedDirectory(FullPathName(name));
    else if (change == FolderChange::FileRenamed && QueryIsDirectory(newName))
        NoteMovedDirectory(FullPathName(name), FullPathName(newName));
    if (aIniFile.SHChangeNotify)
        NotifyFolders(change, name, newName);
}

unsigned NoteGoneDirectory(std::u16string_view name)
{
    NotifyOfChange(FolderChange::DirectoryDeleted, name);
    DescriptionChanges descriptions(DirectoryPart(name));
    descriptions.Remove(FileNamePart(name));
    return descriptions.Write();
}

std::optional<unsigned> PutIntoBin(const CString& name, bool only)
{
    const unsigned failed = MoveToRecycleBin(name);
    if (failed == ERROR_NOT_SUPPORTED)
        return only ? std::optional<unsigned>(errors::noRecycleBin) : std::nullopt;
    // The numbers are the bin's own.
    return failed == 0 ? 0 : unsigned{errors::notRecycled};
}

FileWork::FileWork(std::u16string_view counterName, const FileWorkOptions& switches, BatchManners manners)
    : counter(counterName), options(switches)
{
    const bool everyday = CurrentSyntax().cmdDelimiters && !options.pretends && !options.totalsOnly;
    showsLines = !options.quiet && !options.totalsOnly && !everyday;
    showsTotals = !options.quiet && !(everyday && manners == BatchManners::Silent);
}

void FileWork::ForEachDirectory(FILESEARCH& search, const CString& argument,
                                const std::function<void(const SearchedDirectory&)>& visit)
{
    search.error = 0;
    StartSearch(search, argument);
    SearchedDirectory directory;
    bool any = false;
    bool told = false;
    while (!stopped && NextDirectory(search, directory)) {
        if (directory.found.error)
            Failed(directory.found.error, directory.found.name);
        told = told || directory.found.error != 0;
        any = any || !directory.found.files.empty();
        visit(directory);
    }
    if (search.error != 0 && !told)
        return Failed(search.error, search.failed);
    if (any || stopped || told)
        return;
    const CString name = WithoutQuotes(argument);
    // Not the directory is missing, but something in it.
    const bool isDirectory = search.intoDirectories && !HasWildcards(name) && QueryIsDirectory(name);
    Failed(ERROR_FILE_NOT_FOUND, isDirectory ? JoinPath(name, u"*") : name);
}

bool FileWork::ForEachFile(FILESEARCH& search, const CString& argument, const std::function<void()>& visit)
{
    search.error = 0;
    bool any = false;
    for (bool found = FindFiles(search, argument); found && !stopped; found = FindFiles(search)) {
        any = true;
        visit();
    }
    ForEachFailure(search, [this](unsigned code, const CString& name) { Failed(code, name); });
    return any || search.error != 0;
}

bool FileWork::Wants(unsigned question, std::u16string_view name)
{
    const bool wanted = Confirms(options.asks, question, name);
    stopped = stopped || (!wanted && !MayAsk()); // once is enough
    return wanted;
}

bool FileWork::Confirms(bool& asks, unsigned question, std::u16string_view name)
{
    ThrowIfBroken();
    if (stopped || !asks)
        return !stopped;
    if (!MayAsk()) {
        Failed(errors::nobodyToAsk, name);
        return false;
    }
    switch (QueryInputChar(question, name, u"YNRQ", u'Q')) {
    case u'Y': return true;
    case u'R': asks = false; return true;
    case u'Q': stopped = true; return false;
    default: return false;
    }
}

void FileWork::Show(unsigned line, std::u16string_view name, std::u16string_view newName)
{
    if (!showsLines)
        return;
    CString text = LoadMessage(line, name);
    if (!newName.empty())
        text.Append(u" -> ").Append(newName);
    PrintLine(text);
}

void FileWork::Did(unsigned line, std::u16string_view name, std::u16string_view newName)
{
    ++files;
    Show(line, name, newName);
}

void FileWork::DidDirectory(unsigned line, std::u16string_view name, std::u16string_view newName)
{
    ++directories;
    Show(line, name, newName);
}

void FileWork::Noted(unsigned line, std::u16string_view name)
{
    Passed();
    Show(line, name, {});
}

void FileWork::Failed(unsigned code, std::u16string_view name)
{
    ++errors;
    if (!options.ignoresErrors)
        MVError(code, name);
}

void FileWork::Do(const std::function<void()>& body, unsigned totals)
{
    try {
        body();
    } catch (const Break&) {
        // Those who wanted no totals did not mean to break it off.
        PrintError(LoadMessage(showsLines ? message::brokenOff : message::brokenOffUnnamed) + u"\r\n");
        showsTotals = true;
        Finish(totals);
        throw;
    }
}

int FileWork::Finish(unsigned totals)
{
    SetResultCounters(counter, {files, directories, errors});
    const std::int64_t done = files + directories;
    if (showsTotals && totals != 0)
        PrintLine(LoadMessage(done == 0   ? totals
                              : done == 1 ? totals + 1
                                          : totals + 2,
                              Format(u"%I64d", done)));
    return errors != 0 || (done == 0 && passed == 0 && !stopped) ? result::error : result::success;
}

int FileWork::FinishQuietly()
{
    SetResultCounters(counter, {files, directories, errors});
    return errors != 0 ? result::error : result::success;
}
