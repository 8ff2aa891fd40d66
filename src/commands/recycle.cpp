#include "commands/recycle.h"

#include <algorithm>

#include <windows.h>

#include "commands/file_work.h"
#include "core/command_switches.h"
#include "engine/console_entry.h"
#include "engine/country.h"
#include "engine/expansion_entry.h"
#include "engine/internal_entry.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/dates.h"
#include "files/wildcards.h"
#include "lang/file_messages.h"
#include "platform/directory.h"
#include "platform/file_facts.h"
#include "platform/recycle_bin.h"
#include "platform/volumes.h"
#include "text/path_names.h"
#include "text/words.h"

const CommandHelp recycleHelp = {
    u"Shows, empties and restores from the recycle bin.",
    u"RECYCLE [drive: ...]\n"
    u"RECYCLE /L [name ...]\n"
    u"RECYCLE /R [/N] [/P] [/Q] name ...\n"
    u"RECYCLE /X [/N | /Y] [drive: ...]",
    u"/L  list what is in it: when it was deleted, how large it is, where it was\n"
    u"/N  restore or delete nothing, show only what would be\n"
    u"/P  ask before each one\n"
    u"/Q  show neither names nor totals\n"
    u"/R  restore to where it was; of several under one name the one deleted last\n"
    u"/X  delete for good all that is in it, after a question\n"
    u"/Y  without the question\n"
    u"Alone it shows what each drive's bin holds. A name is that of the deleted file, or its full name, and "
    u"may hold wildcards. What has a new file in its place is not restored. Without drives all are meant. "
    u"The result counters are %_recycle_files, %_recycle_dirs and %_recycle_errors.",
    u"recycle\n"
    u"recycle /l *.doc\n"
    u"recycle /r C:\\work\\plan.doc\n"
    u"recycle /x /y d:",
};

namespace {

// "c:", with or without a backslash. Anything else would empty a bin that nobody has named.
bool NamesDrive(std::u16string_view name)
{
    return name.size() >= 2 && IsAsciiLetter(name[0]) && name[1] == u':' &&
           (name.size() == 2 || (name.size() == 3 && IsPathSeparator(name[2]))) &&
           QueryIsDirectory(DriveRoot(name));
}

// Drives with a bin, or those that are named.
std::vector<CString> Roots(const std::vector<CString>& names)
{
    std::vector<CString> roots;
    for (const CString& name : names)
        roots.push_back(DriveRoot(name));
    if (names.empty())
        for (const char16_t letter : AllDrives())
            if (CString root = DriveRoot(CString(1, letter)); ReadBinTotals(root))
                roots.push_back(std::move(root));
    return roots;
}

CString WithThousands(std::uint64_t number)
{
    CString text = Format(u"%u", number);
    AddCommas(text);
    return text;
}

// A drive without a bin is reported. The result of the last that went wrong.
int ForEachBin(const std::vector<CString>& names, int (*visit)(const CString& root, const BinTotals& totals))
{
    for (const CString& name : names)
        if (!NamesDrive(name))
            return MVError(ERROR_INVALID_DRIVE, name);
    int code = result::success;
    for (const CString& root : Roots(names)) {
        const std::optional<BinTotals> totals = ReadBinTotals(root);
        if (const int one = totals ? visit(root, *totals) : MVError(errors::noRecycleBin, root))
            code = one;
    }
    return code;
}

int ShowTotals(const CString& root, const BinTotals& totals)
{
    PrintLine(Format(u"%s %12s %s %18s %s", root, WithThousands(totals.items), LoadMessage(message::binItems),
                     WithThousands(totals.bytes), LoadMessage(message::byteCount)));
    return result::success;
}

int EmptyUnasked(const CString& root, const BinTotals& totals)
{
    const unsigned failed = totals.items == 0 ? 0 : EmptyBin(root);
    return failed ? MVError(failed, root) : result::success;
}

int EmptyIfWanted(const CString& root, const BinTotals& totals)
{
    if (totals.items == 0)
        return result::success;
    if (!MayAsk())
        return MVError(errors::needsYes, root);
    const bool wanted = QueryInputChar(message::askEmptyBin, root, u"YN", u'N') == u'Y';
    return wanted ? EmptyUnasked(root, totals) : result::success;
}

CString FullName(const RecycledItem& item) { return JoinPath(item.folder, item.name); }

bool Fits(const RecycledItem& item, const CString& name)
{
    const bool whole = HasDirectory(name);
    return WildcardComparison(name, whole ? FullName(item) : item.name, !whole, !whole) == 0;
}

// What fits a name, the one deleted last first.
std::vector<const RecycledItem*> Find(const std::vector<RecycledItem>& items, const CString& name)
{
    std::vector<const RecycledItem*> found;
    for (const RecycledItem& item : items)
        if (Fits(item, name))
            found.push_back(&item);
    std::stable_sort(found.begin(), found.end(),
                     [](const auto* a, const auto* b) { return a->deleted > b->deleted; });
    return found;
}

int List(RecycleBin& bin, const std::vector<CString>& names)
{
    const std::vector<RecycledItem> items = bin.Items();
    const NationalSettings country = Country();
    int code = result::success;
    for (const CString& name : names) {
        const std::vector<const RecycledItem*> found = Find(items, name);
        if (found.empty() && name != u"*")
            code = MVError(ERROR_FILE_NOT_FOUND, name);
        for (const RecycledItem* item : found)
            PrintLine(Format(u"%-17s %17s %s",
                             item->deleted ? FormatFileTime(item->deleted, country) : CString(),
                             item->isFolder ? CString() : WithThousands(item->size), FullName(*item)));
    }
    return code;
}

int Restore(RecycleBin& bin, const std::vector<CString>& names, const FileWorkOptions& options)
{
    FileWork work(u"recycle", options, BatchManners::Silent);
    const std::vector<RecycledItem> items = bin.Items();
    std::vector<CString> restored;
    for (const CString& name : names) {
        const std::vector<const RecycledItem*> found = Find(items, name);
        if (found.empty())
            work.Failed(ERROR_FILE_NOT_FOUND, name);
        for (const RecycledItem* item : found) {
            const CString shown = FullName(*item);
            const bool again = std::any_of(restored.begin(), restored.end(),
                                           [&](const CString& one) { return EqualNoCase(one, shown); });
            if (again || !work.Wants(message::askRestore, shown))
                continue;
            if (const unsigned failed = work.Pretends() ? 0 : bin.Restore(*item)) {
                work.Failed(failed, shown);
                continue;
            }
            restored.push_back(shown);
            item->isFolder ? work.DidDirectory(message::nameAlone, shown)
                           : work.Did(message::nameAlone, shown);
        }
    }
    return work.Finish(message::itemsRestored);
}

} // namespace

int Recycle_Command(CString& arguments)
{
    constexpr std::u16string_view letters = u"LNPQRXY";
    std::uint64_t flags = 0;
    if (const int code = ReadSwitches(arguments, letters, flags))
        return code;
    const auto has = [&](char16_t letter) { return (flags >> letters.find(letter) & 1) != 0; };
    std::vector<CString> names = SplitArguments(arguments, true, CurrentSyntax());
    for (CString& name : names)
        name = WithoutQuotes(name);
    if (has(u'L') + has(u'R') + has(u'X') > 1 || (has(u'R') && names.empty()))
        return UsageError();
    if (has(u'X') && !has(u'N'))
        return ForEachBin(names, has(u'Y') ? EmptyUnasked : EmptyIfWanted);
    if (!has(u'L') && !has(u'R'))
        return ForEachBin(names, ShowTotals);
    RecycleBin bin;
    if (!bin.IsOpen())
        return MVError(errors::noRecycleBin);
    if (names.empty())
        names.emplace_back(u"*");
    if (has(u'L'))
        return List(bin, names);
    FileWorkOptions options;
    options.pretends = has(u'N');
    options.asks = has(u'P');
    options.quiet = has(u'Q');
    return Restore(bin, names, options);
}
