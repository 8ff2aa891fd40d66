#include "expand/packed_list.h"

#include <algorithm>

#include "text/compare.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;
constexpr std::u16string_view whiteSpace = u" \t\r\n\v\f";

bool IsWhite(char16_t unit) { return whiteSpace.find(unit) != npos; }

enum class Phase : std::uint32_t {
    Rest,
    Open,  // what follows moves up to make room
    Fill,  // the new text is written
    Close, // what follows moves down over what gives way
    Undo,  // repair: the way of Open back
    Drop,  // repair: what follows moves down over the whole entry
    Count
};

constexpr unsigned phaseShift = 28;
constexpr std::uint32_t movedMask = (1u << phaseShift) - 1;

Phase PhaseOf(std::uint32_t progress) { return static_cast<Phase>(progress >> phaseShift); }

// The compiler must not move the writing of units across: a repair believes what stands here.
void SetProgress(ListControl& control, Phase phase, std::uint32_t moved)
{
    std::atomic_signal_fence(std::memory_order_seq_cst);
    control.progress.store(static_cast<std::uint32_t>(phase) << phaseShift | moved,
                           std::memory_order_release);
    std::atomic_signal_fence(std::memory_order_seq_cst);
}

void CountChange(ListControl& control)
{
    std::atomic_thread_fence(std::memory_order_seq_cst);
    control.changes.fetch_add(1);
    std::atomic_thread_fence(std::memory_order_seq_cst);
}

void EndChange(ListControl& control)
{
    SetProgress(control, Phase::Rest, 0);
    CountChange(control);
}

struct Move {
    std::size_t from;
    std::size_t to;
};

Move MoveOf(const ListControl& control, Phase phase)
{
    const std::size_t at = control.at;
    const std::size_t behindOld = at + control.oldLength;
    const std::size_t behindNew = at + control.newLength;
    switch (phase) {
    case Phase::Undo: return {behindNew, behindOld};
    case Phase::Drop: return {std::max(behindOld, behindNew), control.entry};
    default: return {behindOld, behindNew};
    }
}

// Moves one piece of the tail, no longer than the way it goes, so that the piece can be moved once more
// from its old place if we are stopped before we have written down that it was. False when all has moved.
bool MovePiece(const ListBlock& block)
{
    ListControl& control = *block.control;
    const std::uint32_t progress = control.progress;
    const std::size_t moved = progress & movedMask;
    const std::size_t left = control.tail - moved;
    const Move move = MoveOf(control, PhaseOf(progress));
    const bool up = move.to > move.from;
    const std::size_t distance = up ? move.to - move.from : move.from - move.to;
    const std::size_t piece = std::min(distance, left);
    if (piece == 0)
        return false;
    const std::size_t first = up ? left - piece : moved;
    std::copy_n(block.units + move.from + first, piece, block.units + move.to + first);
    SetProgress(control, PhaseOf(progress), static_cast<std::uint32_t>(moved + piece));
    return true;
}

// One step of the change that the control describes; `text` is at hand only while its writer lives.
bool StepChange(const ListBlock& block, std::u16string_view text)
{
    ListControl& control = *block.control;
    switch (PhaseOf(control.progress)) {
    case Phase::Rest: return false;
    case Phase::Open:
        if (!MovePiece(block))
            SetProgress(control, Phase::Fill, 0);
        return true;
    case Phase::Fill:
        std::copy(text.begin(), text.end(), block.units + control.at);
        if (control.newLength < control.oldLength)
            SetProgress(control, Phase::Close, 0);
        else
            EndChange(control);
        return true;
    default:
        if (!MovePiece(block))
            EndChange(control);
        return true;
    }
}

std::size_t UsableUnits(const ListBlock& block)
{
    return block.capacity > listReserve ? block.capacity - listReserve : 0;
}

// Whether the control can be believed: another program may have written into a shared block.
bool IsPlausible(const ListBlock& block)
{
    const ListControl& control = *block.control;
    const std::uint32_t progress = control.progress;
    const std::uint64_t longer = std::max(control.oldLength.load(), control.newLength.load());
    return PhaseOf(progress) < Phase::Count && (progress & movedMask) <= control.tail &&
           control.entry <= control.at && control.at + longer + control.tail <= UsableUnits(block);
}

// Finds the end of the name of a definition that is not for the environment: white space ends it, too.
void EndNameAtWhiteSpace(CString& entry)
{
    std::size_t at = 0;
    while (at < entry.size() && !IsWhite(entry[at]) && (entry[at] != u'=' || at == 0))
        ++at;
    std::size_t end = at;
    while (end < entry.size() && IsWhite(entry[end]))
        ++end;
    if (end == at)
        return;
    entry.Erase(at, end - at);
    if (entry[at] != u'=')
        entry.Insert(at, u"=");
}

void TrimListValue(CString& entry, std::size_t value)
{
    std::size_t text = value;
    while (text < entry.size() && IsWhite(entry[text]))
        ++text;
    const bool quoted = entry[text] == u'`';
    entry.Erase(value, text - value + (quoted ? 1 : 0));
    if (quoted && entry.size() > value && entry.back() == u'`')
        entry.Truncate(entry.size() - 1);
}

} // namespace

std::u16string_view EntryAt(std::u16string_view block, std::size_t at)
{
    if (at >= block.size())
        return {};
    const std::size_t end = block.find(u'\0', at);
    return block.substr(at, end == npos ? npos : end - at);
}

std::size_t NextListEntry(std::u16string_view block, std::size_t at)
{
    const std::size_t length = EntryAt(block, at).size();
    return length == 0 ? at : std::min(at + length + 1, block.size());
}

std::size_t EndOfList(std::u16string_view block)
{
    std::size_t at = 0;
    while (at < block.size() && block[at] != u'\0') {
        const std::size_t end = block.find(u'\0', at);
        if (end == npos)
            break;
        at = end + 1;
    }
    return at;
}

std::size_t GetListSize(std::u16string_view block) { return EndOfList(block) * sizeof(char16_t) + 4; }

std::size_t NameLength(std::u16string_view entry)
{
    const std::size_t end = entry.empty() ? npos : entry.find(u'=', 1);
    return end == npos ? entry.size() : end;
}

bool NameMatches(std::u16string_view entry, std::u16string_view name, NameMatch match)
{
    entry = EntryName(entry);
    name = EntryName(name);
    if (entry.empty() || name.empty())
        return false;
    if (match == NameMatch::Plain)
        return EqualNoCase(entry, name);
    bool passedStar = false;
    std::size_t at = 0;
    for (std::size_t i = 0; i <= entry.size(); ++i) {
        if (i < entry.size() && entry[i] == u'*') {
            passedStar = true;
            if (at < name.size() && name[at] == u'*')
                ++at;
            continue;
        }
        while (match == NameMatch::WholeName && at < name.size() && name[at] == u'*')
            ++at;
        if (at == name.size())
            return i == entry.size() || (passedStar && match == NameMatch::Abbreviated);
        if (i == entry.size() || UpperCase(entry[i]) != UpperCase(name[at]))
            return false;
        ++at;
    }
    return false;
}

std::size_t FindListEntry(std::u16string_view block, std::u16string_view name, NameMatch match)
{
    for (std::size_t at = 0;;) {
        const std::u16string_view entry = EntryAt(block, at);
        if (entry.empty())
            return npos;
        if (NameMatches(entry, name, match))
            return at;
        at += entry.size() + 1;
    }
}

bool NormalizeEntry(CString& entry, EntryKind kind)
{
    entry.Truncate(std::min(entry.Find(u'\0'), entry.size()));
    if (kind != EntryKind::Environment)
        entry.TrimLeft(whiteSpace);
    if (entry.empty() || (entry[0] == u'=' && (entry[2] != u':' || entry[3] != u'=')))
        return false;
    if (kind != EntryKind::Environment)
        EndNameAtWhiteSpace(entry);
    const std::size_t name = NameLength(entry);
    if (name == entry.size())
        entry.Append(u'=');
    if (kind == EntryKind::ListEntry)
        TrimListValue(entry, name + 1);
    return true;
}

bool NeedsRepair(const ListBlock& block)
{
    return IsListChanging(block) || EndOfList(block.View()) >= UsableUnits(block);
}

bool ListHasRoom(const ListBlock& block, std::ptrdiff_t growth)
{
    const auto end = static_cast<std::ptrdiff_t>(EndOfList(block.View()) + listHeadroom);
    return end + growth < static_cast<std::ptrdiff_t>(UsableUnits(block));
}

bool UpdateList(const ListBlock& block, std::u16string_view entry, NameMatch match)
{
    const std::u16string_view list = block.View().substr(0, EndOfList(block.View()));
    const std::size_t found = FindListEntry(list, entry, match);
    const std::size_t start = found == npos ? list.size() : found;
    if (EntryValue(entry).empty())
        return found == npos || DeleteListEntry(block, found);
    // The entry's closing NUL is part of both texts, so that a new entry is no special case.
    CString text(entry);
    text.Append(u'\0');
    const std::u16string_view oldEntry = EntryAt(list, start);
    std::size_t at = start;
    std::size_t oldLength = found == npos ? 0 : oldEntry.size() + 1;
    std::u16string_view newText(text.view());
    const bool respelled = EntryName(entry).find(u'*') != npos; // a new abbreviation point is meant to count
    if (found != npos && !respelled) {
        at += NameLength(oldEntry) + 1;
        oldLength -= NameLength(oldEntry) + 1;
        newText.remove_prefix(NameLength(entry) + 1);
    }
    if (!ListHasRoom(block,
                     static_cast<std::ptrdiff_t>(newText.size()) - static_cast<std::ptrdiff_t>(oldLength)))
        return false;
    ListChange change(block, start, at, oldLength, newText);
    while (change.Step()) {
    }
    return true;
}

bool DeleteListEntry(const ListBlock& block, std::size_t at)
{
    const std::u16string_view list = block.View().substr(0, EndOfList(block.View()));
    const std::size_t length = EntryAt(list, at).size();
    if (length == 0)
        return false;
    ListChange change(block, at, at, length + 1, {});
    while (change.Step()) {
    }
    return true;
}

bool FillList(const ListBlock& block, std::u16string_view entries)
{
    if (entries.size() + listHeadroom >= UsableUnits(block))
        return false;
    CountChange(*block.control);
    std::copy(entries.begin(), entries.end(), block.units);
    block.units[entries.size()] = u'\0';
    CountChange(*block.control);
    return true;
}

ListChange::ListChange(const ListBlock& changed, std::size_t entry, std::size_t at, std::size_t oldLength,
                       std::u16string_view newText)
    : block(changed), text(newText)
{
    ListControl& control = *block.control;
    const std::size_t end = EndOfList(block.View());
    CountChange(control);
    control.entry = static_cast<std::uint32_t>(entry);
    control.at = static_cast<std::uint32_t>(at);
    control.oldLength = static_cast<std::uint32_t>(oldLength);
    control.newLength = static_cast<std::uint32_t>(text.size());
    control.tail = static_cast<std::uint32_t>(end + 1 - at - oldLength);
    const Phase first = text.size() > oldLength ? Phase::Open : text.empty() ? Phase::Close : Phase::Fill;
    SetProgress(control, first, 0);
}

bool ListChange::Step() { return StepChange(block, text); }

void RepairList(const ListBlock& block)
{
    ListControl& control = *block.control;
    const std::uint32_t progress = control.progress;
    if (!IsPlausible(block))
        SetProgress(control, Phase::Rest, 0);
    else if (PhaseOf(progress) == Phase::Open) // what has not moved yet stands where it is to go back to
        SetProgress(control, Phase::Undo, control.tail - (progress & movedMask));
    else if (PhaseOf(progress) == Phase::Fill)
        SetProgress(control, Phase::Drop, 0);
    while (StepChange(block, {})) {
    }
    if (IsListChanging(block))
        CountChange(control);
    // No list reaches this far, unless its closing NUL was overwritten.
    if (UsableUnits(block) >= 2)
        std::fill_n(block.units + UsableUnits(block) - 2, 2, u'\0');
}
