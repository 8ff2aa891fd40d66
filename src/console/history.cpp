#include "console/history.h"

#include <algorithm>
#include <utility>

#include "console/extended_history.h"
#include "console/history_lock.h"
#include "console/history_rules.h"
#include "core/substitution.h"
#include "engine/break.h"
#include "engine/console_entry.h"
#include "engine/inifile.h"
#include "engine/state.h"
#include "expand/list_blocks.h"
#include "files/text_lines.h"
#include "platform/environment.h"
#include "text/words.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;
constexpr std::size_t longestFileLine = 32767; // units; what is longer is cut there

ListBlock BlockInUse(ListKind kind)
{
    const ListBlock local = QueryListBlock(kind, ListScope::Local);
    return local ? local : QueryListBlock(kind, ListScope::Global);
}

ListBlock QueryBlock(const HistoryList& list)
{
    return list.scope ? QueryListBlock(list.kind, *list.scope) : BlockInUse(list.kind);
}

// The block of a list with everybody else kept out, put right if its last writer died.
class HistoryAccess {
public:
    explicit HistoryAccess(const HistoryList& list)
    {
        block = QueryBlock(list);
        if (block)
            RepairIfNeeded(block);
    }

    explicit operator bool() const { return static_cast<bool>(block); }
    const ListBlock& Block() const { return block; }

private:
    HistoryGuard guard;
    ListBlock block;
};

EqualLines EqualLinesOf(ListKind kind)
{
    if (kind == ListKind::DirHistory)
        return EqualLines::KeepLast;
    switch (aIniFile.HistDups) {
    case choice::histDups::first: return EqualLines::KeepFirst;
    case choice::histDups::last: return EqualLines::KeepLast;
    default: return EqualLines::Keep;
    }
}

void Append(const HistoryList& list, std::span<const CString> lines, EqualLines equalLines)
{
    const HistoryAccess access(list);
    if (access)
        AppendHistoryLines(access.Block(), lines, equalLines);
}

// The list that `start` begins.
std::u16string_view ListAt(const char16_t* start, const ListBlock& inUse)
{
    if (start == inUse.units)
        return inUse.View();
    std::size_t size = 0;
    while (start[size] != u'\0')
        size += std::u16string_view(start + size).size() + 1;
    return {start, size + 1};
}

using HistoryStep = std::size_t (*)(std::u16string_view list, std::size_t at, bool wrap);

const char16_t* Step(HistoryStep step, const char16_t* entry, bool directories, const char16_t* start)
{
    const HistoryAccess access({directories ? ListKind::DirHistory : ListKind::History, {}});
    if (!start)
        start = access.Block().units;
    if (!start)
        return nullptr;
    const std::u16string_view list = ListAt(start, access.Block());
    const bool inside = entry >= start && entry < start + list.size();
    const std::size_t at = inside ? static_cast<std::size_t>(entry - start) : npos;
    const std::size_t found = step(list, at, !directories && aIniFile.HistWrap);
    return found == npos ? nullptr : start + found;
}

// As it stands, quotes and all; "" when the line has no word.
CString LastArgumentOf(std::u16string_view line)
{
    const Syntax syntax = CurrentSyntax();
    const int count = CountArguments(line, syntax);
    return count == 0 ? CString() : GetNthArgument(line, count - 1, syntax);
}

// The line is what quick substitution edits next, and "%!" takes its word from, once it has run.
void NoteNewestLine(const CString& line)
{
    aTexts.substitutionLine = aTexts.newestLine;
    aTexts.lastArgument = LastArgumentOf(aTexts.newestLine);
    aTexts.newestLine = line;
    // What a substitution makes is the line to go on from.
    QuickSubstitution(aTexts.newestLine, aTexts.substitutionLine);
}

std::size_t UnitsOf(std::span<const CString> lines)
{
    std::size_t units = 0;
    for (const CString& line : lines)
        units += line.size() + 1;
    return units;
}

// The first of the lines that a list of so many units may still hold.
std::size_t KeptFrom(std::span<const CString> lines, std::size_t room)
{
    std::size_t from = lines.size();
    for (std::size_t units = 0; from > 0 && units <= room; --from)
        units += lines[from - 1].size() + 1;
    return from;
}

std::size_t NewestEqualLine(std::u16string_view block, std::u16string_view line)
{
    std::size_t found = npos;
    for (std::size_t at = 0; !EntryAt(block, at).empty(); at = NextListEntry(block, at))
        if (EntryAt(block, at) == line)
            found = at;
    return found;
}

bool IsKept(std::u16string_view line, std::size_t listSize)
{
    CString excluded;
    ReadEnvironment(u"HistoryExclude", excluded);
    return IsKeptInHistory(line, {aIniFile.HistMin, listSize, excluded}, CurrentSyntax());
}

} // namespace

void AddToHistory(CString& line, bool force)
{
    line.TrimRight();
    const bool wanted = !std::exchange(Tls().lineNotSaved, false);
    const bool recalled = std::exchange(Tls().lineRecalled, false);
    if (!line.empty() || force)
        NoteNewestLine(line);
    const std::size_t size = HistorySize();
    const bool kept = size > 0 && wanted && IsKept(line, size);
    if (kept && !force)
        BeginExtendedEntry(line);
    if (size == 0 || recalled || (!kept && !force))
        return;
    Append({}, std::span(&line, 1), force ? EqualLines::Keep : EqualLinesOf(ListKind::History));
}

const char16_t* HistoryStart() { return BlockInUse(ListKind::History).units; }

const char16_t* DirHistoryStart() { return BlockInUse(ListKind::DirHistory).units; }

std::size_t HistorySize() { return BlockInUse(ListKind::History).capacity; }

std::size_t DirHistorySize() { return BlockInUse(ListKind::DirHistory).capacity; }

const char16_t* PreviousHistoryEntry(const char16_t* entry, bool directories, const char16_t* start)
{
    return Step(OlderHistoryLine, entry, directories, start);
}

const char16_t* NextHistoryEntry(const char16_t* entry, bool directories, const char16_t* start)
{
    return Step(NewerHistoryLine, entry, directories, start);
}

bool DeleteFromHistory(const char16_t* entry)
{
    for (const ListKind kind : {ListKind::History, ListKind::DirHistory}) {
        const HistoryAccess access({kind, {}});
        const char16_t* const start = access.Block().units;
        if (start && entry >= start && entry < start + access.Block().capacity)
            return DeleteHistoryLine(access.Block(), static_cast<std::size_t>(entry - start));
    }
    return false;
}

void NoteDirectoryChange(std::u16string_view left, std::u16string_view entered)
{
    const CString directory(aIniFile.DirHistoryOnEntry ? entered : left);
    if (DirHistorySize() != 0)
        AddHistoryLines({ListKind::DirHistory, {}}, std::span(&directory, 1));
}

bool HistoryExists(const HistoryList& list) { return static_cast<bool>(QueryBlock(list)); }

std::vector<CString> HistoryLines(const HistoryList& list)
{
    const HistoryAccess access(list);
    return access ? AllHistoryLines(access.Block().View()) : std::vector<CString>();
}

void AddHistoryLines(const HistoryList& list, std::span<const CString> lines)
{
    Append(list, lines, EqualLinesOf(list.kind));
}

void ClearHistory(const HistoryList& list)
{
    const HistoryAccess access(list);
    if (access)
        ClearHistoryLines(access.Block());
}

void RemoveEqualLines(const HistoryList& list)
{
    const HistoryAccess access(list);
    if (access)
        RemoveEqualHistoryLines(access.Block());
}

bool DeleteHistoryLine(const HistoryList& list, std::u16string_view line)
{
    const HistoryAccess access(list);
    const std::size_t at = access ? NewestEqualLine(access.Block().View(), line) : npos;
    return at != npos && DeleteHistoryLine(access.Block(), at);
}

bool ReplaceHistoryLine(const HistoryList& list, std::u16string_view line, std::u16string_view by)
{
    const HistoryAccess access(list);
    const std::size_t at = access ? NewestEqualLine(access.Block().View(), line) : npos;
    return at != npos && ReplaceHistoryLine(access.Block(), at, by);
}

bool ReadHistoryFile(const HistoryList& list, std::u16string_view name)
{
    TextLines file;
    if (!file.Open(name, OtherWriters::Refused))
        return false;
    // A file may be larger than memory; of what is longer than the list only the end can stay. Where equal
    // lines count all are looked at, a piece at a time.
    const std::size_t room = QueryBlock(list).capacity;
    const bool onlyTheEndCounts = EqualLinesOf(list.kind) == EqualLines::Keep;
    std::vector<CString> lines;
    std::size_t units = 0;
    std::u16string_view line;
    while (file.Next(line)) {
        lines.emplace_back(line.substr(0, longestFileLine));
        units += lines.back().size() + 1;
        if (units > 2 * room + longestFileLine) {
            if (onlyTheEndCounts)
                lines.erase(lines.begin(),
                            lines.begin() + static_cast<std::ptrdiff_t>(KeptFrom(lines, room)));
            else
                AddHistoryLines(list, std::exchange(lines, {}));
            units = UnitsOf(lines);
        }
        ThrowIfBroken();
    }
    AddHistoryLines(list, lines);
    return true;
}
