#include "commands/transfer.h"

#include <windows.h>

#include "core/command_switches.h"
#include "engine/break.h"
#include "engine/inifile.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/descriptions.h"
#include "files/excepted_files.h"
#include "files/known_directories.h"
#include "files/partial_files.h"
#include "lang/file_messages.h"
#include "platform/environment.h"
#include "platform/file_changes.h"
#include "platform/file_details.h"
#include "platform/file_facts.h"
#include "text/compare.h"
#include "text/numbers.h"
#include "text/path_names.h"
#include "text/words.h"

namespace {

constexpr std::uint32_t hiding = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;

// "/S" or "/Sn".
int TakeDepth(CString& arguments, int& deepest)
{
    CString text;
    while (TakeSwitchLetters(arguments, u"S", text)) {
        const auto levels = text.empty() ? std::optional<std::int64_t>(allLevels) : ParseInteger(text);
        if (!levels || *levels < 0 || *levels > allLevels)
            return MVError(errors::invalidNumber, text);
        deepest = static_cast<int>(*levels);
    }
    return result::success;
}

// "/W" or "/Wn" of MOVE.
int TakePasses(CString& arguments, int& passes)
{
    CString text;
    if (!TakeSwitchLetters(arguments, u"W", text))
        return result::success;
    const auto count =
        text.empty() ? std::optional<std::int64_t>(aIniFile.DelWipePasses) : ParseInteger(text);
    if (!count || *count < 1 || *count > 99)
        return MVError(errors::invalidNumber, text);
    passes = static_cast<int>(*count);
    return result::success;
}

// What COPYCMD says about questions, for those who say nothing themselves.
bool AsksByHabit()
{
    CString habit;
    ReadEnvironment(u"COPYCMD", habit);
    const bool yes = TakeSwitchWord(habit, u"Y");
    return TakeSwitchWord(habit, u"-Y") && !yes;
}

// Whether both names lead to one file. That may cost more to find out than a small copy.
bool IsSameFile(const CString& from, const CString& to, const FileFacts& toFacts)
{
    const auto facts = ReadFileFacts(from);
    if (facts &&
        (facts->size != toFacts.size || FileTimeNumber(facts->written) != FileTimeNumber(toFacts.written) ||
         FileTimeNumber(facts->created) != FileTimeNumber(toFacts.created)))
        return false;
    return IsOneFile(from, to);
}

// Whether a name that was to be new is there.
bool IsTaken(unsigned code) { return code == ERROR_ALREADY_EXISTS || code == ERROR_FILE_EXISTS; }

// Whether the error is about the target, as far as the number tells.
bool IsAboutTarget(unsigned code)
{
    switch (code) {
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case ERROR_WRITE_PROTECT:
    case ERROR_INVALID_NAME:
    case ERROR_PATH_NOT_FOUND: return true;
    default: return IsTaken(code);
    }
}

} // namespace

int ReadTransfer(CString& arguments, std::u16string_view own, FILESEARCH& search, TransferSwitches& switches,
                 std::u16string_view shared)
{
    const auto takes = [own](char16_t letter) { return own.find(letter) != own.npos; };
    switches.manner.rights = TakeSwitchWord(arguments, u"ACL");
    switches.makesTarget = TakeSwitchWord(arguments, u"MD");
    const bool asks = TakeSwitchWord(arguments, u"-Y");
    if (takes(u'S'))
        if (const int code = TakeDepth(arguments, search.deepest))
            return code;
    if (takes(u'w'))
        if (const int code = TakePasses(arguments, switches.manner.wipePasses))
            return code;
    CString letters(shared);
    for (const char16_t letter : own)
        if (letter != u'S' && letter != u'w')
            letters.Append(letter);
    std::uint64_t flags = 0;
    if (const int code = ReadFileWork(arguments, letters, search, switches.work, flags))
        return code;
    const auto has = [&](char16_t letter) {
        const std::size_t bit = letters.Find(letter);
        return bit != CString::npos && (flags >> bit & 1) != 0;
    };
    switches.makesTarget = switches.makesTarget || search.deepest > 0;
    switches.olderTargets = has(u'C');
    switches.firstErrorEnds = has(u'F');
    switches.progressAtOnce = has(u'G');
    switches.overHidden = has(u'H');
    switches.missingOnly = has(u'O');
    switches.update = has(u'U');
    switches.confirms = has(u'R') || (!has(u'Y') && (asks || AsksByHabit()));
    switches.overProtected = has(u'Z');
    switches.manner.overProtected = has(u'Z');
    switches.intoDirectory = has(u'D');
    switches.manner.contents.decrypted = has(u'D');
    switches.manner.contents.restartable = has(u'J');
    switches.manner.keepsReadOnly = has(u'K');
    switches.manner.contents.links = has(u'L');
    switches.manner.verifies = has(u'V') || aGlobals.verifyCopies != 0;
    switches.clearsArchive = has(u'X');
    switches.mirrors = has(u'W');
    switches.both = has(u'2');
    if (has(u'H'))
        search.attributes.included |= AttributeMasks::all;
    if (has(u'M'))
        search.attributes.required |= file_attribute::archive;
    return result::success;
}

Transfer::Here::Here(const CString& from, const CString& to) : source(from), target(to), sourceTexts(from)
{
    if (!EqualNoCase(from, to))
        targetTexts.emplace(to);
}

Transfer::Transfer(Kind what, std::u16string_view counter, const TransferSwitches& how)
    : work(counter, how.work, BatchManners::TotalsOnly), progress(how.progressAtOnce), switches(how),
      kind(what), transfer(how.manner, [this](std::uint64_t bytes) {
          ThrowIfBroken();
          progress.At(bytes);
      })
{}

int Transfer::Run(const std::function<void()>& body, unsigned totals)
{
    const auto done = [&] {
        try {
            body();
            Leave();
        } catch (const Break&) {
            progress.Hide();
            throw;
        }
        progress.Hide();
    };
    work.Do(done, totals);
    const int code = work.Finish(answersOnly ? 0 : totals);
    // What the command prompt answers.
    return code == result::error ? 1 : code;
}

void Transfer::Failed(unsigned code, std::u16string_view name)
{
    progress.Hide();
    work.Failed(code, name);
    if (switches.firstErrorEnds)
        work.Stop();
}

void Transfer::Did(std::u16string_view name, std::u16string_view newName)
{
    progress.Hide();
    work.Did(message::nameAlone, name, newName);
}

void Transfer::DidDirectory(std::u16string_view name, std::u16string_view newName)
{
    progress.Hide();
    work.DidDirectory(message::nameAlone, name, newName);
}

void Transfer::Deleted(std::u16string_view name, bool isDirectory)
{
    progress.Hide();
    const unsigned line = isDirectory ? message::removedDirectory : message::deleting;
    if (!switches.countsDeleted)
        return work.Noted(line, name);
    isDirectory ? work.DidDirectory(line, name) : work.Did(line, name);
}

void Transfer::Enter(const CString& source, const CString& target)
{
    if (here && here->source == source && here->target == target)
        return;
    if (!here || here->target != target)
        RemoveAbandonedFiles(target);
    Leave();
    here.emplace(source, target);
}

void Transfer::Leave()
{
    if (!here)
        return;
    if (const unsigned failed = here->TargetTexts().Write())
        Failed(failed, here->target);
    if (const unsigned failed = here->sourceTexts.Write())
        Failed(failed, here->source);
    here.reset();
}

bool Transfer::MakeDirectoryFor(const CString& directory, std::u16string_view shown)
{
    if (madeLast == directory || QueryIsDirectory(directory)) {
        madeLast = directory;
        return true;
    }
    if (IsReservedName(WithoutEndSeparators(directory))) {
        Failed(errors::reservedTarget, shown);
        return false;
    }
    if (work.Pretends())
        return true;
    const unsigned failed = MakeDirectoryWithParents(WithoutEndSeparators(directory), NoteNewDirectory);
    if (failed != 0 && failed != ERROR_ALREADY_EXISTS) {
        Failed(failed, shown);
        return false;
    }
    NotifyOfChange(FolderChange::DirectoryCreated, WithoutEndSeparators(directory));
    madeLast = directory;
    return true;
}

bool Transfer::IsNeeded(const EntryFacts& facts, const std::optional<FileFacts>& there) const
{
    if (!there)
        return !switches.olderTargets;
    if (switches.missingOnly)
        return false;
    return (!switches.olderTargets && !switches.update) || facts.written > FileTimeNumber(there->written);
}

void Transfer::ClearArchive(const CString& name, const EntryFacts& facts) const
{
    constexpr std::uint32_t archive = FILE_ATTRIBUTE_ARCHIVE;
    if (kind == Kind::Copy && switches.clearsArchive && (facts.attributes & archive) != 0)
        ChangeAttributes(name, facts.attributes & ~archive);
}

bool Transfer::MayReplace(const CString& from, CString& to, const FileFacts& there, std::u16string_view shown)
{
    if (IsSameFile(from, to, there)) {
        // Another spelling of its own name is a new name.
        if (kind == Kind::Move && from != to && EqualNoCase(from, to))
            return true;
        Failed(errors::copyOntoItself, shown);
        return false;
    }
    // Written is what a link leads to.
    if (kind == Kind::Copy && (there.attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0)
        if (const CString real = RealPathName(to); !real.empty())
            to = real;
    const std::uint32_t guarded =
        switches.overHidden ? FILE_ATTRIBUTE_READONLY : FILE_ATTRIBUTE_READONLY | hiding;
    if (!switches.overProtected && (there.attributes & guarded) != 0) {
        Failed(errors::targetProtected, shown);
        return false;
    }
    progress.Hide();
    return work.Confirms(switches.confirms, message::askOverwrite, shown);
}

void Transfer::Do(const TransferName& from, const EntryFacts& facts, const TransferName& to)
{
    if (IsPartialFileName(from.name))
        return;
    TransferItem item{from.Full(), facts, to.Full(), false};
    const CString target = item.to;
    if (IsMadeAlready(item, to) || !IsToBeDone(item, from, to))
        return progress.Skip(facts.size);
    if (!work.Pretends() && !Perform(item, from, to))
        return;
    if (watchesCollisions)
        made.emplace(target, item.from);
    Did(from.shown, to.shown);
}

// A file that two arguments mean is taken once.
bool Transfer::IsMadeAlready(const TransferItem& item, const TransferName& to)
{
    const auto known = made.find(item.to);
    if (known == made.end())
        return false;
    if (EqualNoCase(known->second, item.from))
        work.Passed();
    else
        Failed(errors::madeByThis, to.shown);
    return true;
}

bool Transfer::IsToBeDone(TransferItem& item, const TransferName& from, const TransferName& to)
{
    const auto there = FactsOf(to, item.to);
    if (there && IsExcepted(item.to)) {
        work.Passed();
        return false;
    }
    const bool isDirectory = there && there->IsDirectory();
    if (isDirectory || IsReservedName(to.directory + to.name)) {
        Failed(isDirectory ? errors::targetIsDirectory : errors::reservedTarget, to.shown);
        return false;
    }
    if (!IsNeeded(item.facts, there)) {
        work.Passed();
        return false;
    }
    if (switches.work.asks)
        progress.Hide();
    if (!work.Wants(kind == Kind::Copy ? message::askCopy : message::askMove, from.shown))
        return false;
    item.replaces = there.has_value();
    return !there || MayReplace(item.from, item.to, *there, to.shown);
}

std::optional<FileFacts> Transfer::FactsOf(const TransferName& target, const CString& full)
{
    if (!work.Pretends() && newNames.Has(target.directory, target.name))
        return std::nullopt; // else putting the file in place fails
    auto facts = ReadFileFacts(full);
    if (!facts)
        newNames.NoteMissing();
    return facts;
}

bool Transfer::Perform(const TransferItem& item, const TransferName& from, const TransferName& to)
{
    if (!MakeDirectoryFor(to.directory, to.shown))
        return false;
    Enter(from.directory, to.directory);
    progress.Begin(from.shown);
    const TransferOutcome outcome = kind == Kind::Copy ? transfer.Copy(item) : transfer.Move(item);
    if (!item.replaces && IsTaken(outcome.failed) && newNames.Forget()) {
        Do(from, item.facts, to);
        return false;
    }
    progress.End(item.facts.size);
    if (outcome.failed != 0) {
        const bool either = item.replaces && (outcome.failed == ERROR_ACCESS_DENIED ||
                                              outcome.failed == ERROR_SHARING_VIOLATION);
        if (outcome.isThere)
            Failed(errors::sourceStays, from.shown);
        else if (either)
            Failed(outcome.failed, from.shown + u" -> " + to.shown);
        else
            Failed(outcome.failed, IsAboutTarget(outcome.failed) ? to.shown : from.shown);
        return false;
    }
    newNames.NoteMade(to.name);
    Carry(from, to);
    if (Moves())
        NoteMovedFrom(from.directory);
    ClearArchive(item.from, item.facts);
    if (kind == Kind::Move)
        NotifyOfChange(FolderChange::FileRenamed, item.from, item.to);
    else
        NotifyOfChange(item.replaces ? FolderChange::FileUpdated : FolderChange::FileCreated, item.to);
    return true;
}

void Transfer::Carry(const TransferName& from, const TransferName& to)
{
    Enter(from.directory, to.directory);
    const CString text = here->sourceTexts.Of(from.name);
    if (text.empty())
        return;
    if (kind == Kind::Copy) {
        here->TargetTexts().Set(to.name, text);
    } else if (!here->targetTexts) {
        here->sourceTexts.Rename(from.name, to.name);
    } else {
        here->targetTexts->Set(to.name, text);
        here->sourceTexts.Remove(from.name);
    }
}

void Transfer::DropDescription(const CString& source, const TransferName& gone)
{
    Enter(source, gone.directory);
    here->TargetTexts().Remove(gone.name);
}

void Transfer::NoteMovedFrom(const CString& directory)
{
    if (movedFrom.empty() || movedFrom.back() != directory)
        movedFrom.push_back(directory);
}
