// The packed lists that aliases and user functions are kept in: entries "name=value", each ended by a NUL,
// in one block of units that an empty string closes. Only computes; where blocks come from and who may
// change them when is the matter of lists.h.
//
// A block may be shared with other processes, so nothing here trusts what it holds: readers never leave the
// block, and a change is made in small steps that are written down in the block's ListControl. A list that
// its writer left in the middle is completed or put back from there.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "text/cstring.h"

// How a change stands. Lives in the last units of a shared block; all zero at rest.
struct ListControl {
    std::atomic<std::uint32_t> changes;   // odd while the list is changed: readers then read again
    std::atomic<std::uint32_t> progress;  // phase and units moved, in one word so that both change together
    std::atomic<std::uint32_t> at;        // place of the text that is replaced
    std::atomic<std::uint32_t> oldLength; // units that give way
    std::atomic<std::uint32_t> newLength; // units that come in their place
    std::atomic<std::uint32_t> tail;      // units behind them that move, the closing NUL included
    std::atomic<std::uint32_t> entry;     // start of the entry the text belongs to
    std::atomic<std::uint32_t> unused;
};

// The end of a block that lists never use: room for the control of a shared list.
constexpr std::size_t listReserve = 16; // units
constexpr std::size_t listHeadroom = 8; // units before it that a change keeps free as well
static_assert(sizeof(ListControl) == listReserve * sizeof(char16_t));

struct ListBlock {
    char16_t* units = nullptr;
    std::size_t capacity = 0; // units
    ListControl* control = nullptr;

    explicit operator bool() const { return units != nullptr; }
    std::u16string_view View() const { return {units, capacity}; }
};

// How names are compared; letter case never counts.
enum class NameMatch {
    Plain,       // as they stand (functions)
    Abbreviated, // a "*" in the entry's name marks where an abbreviation may end (looking up aliases)
    WholeName,   // a "*" does not count on either side (changing aliases)
};

// Walking a list: an entry is named by its place in the block.
std::u16string_view EntryAt(std::u16string_view block, std::size_t at);
// The start of the entry behind the one at `at`; `at` itself when that is the end of the list.
std::size_t NextListEntry(std::u16string_view block, std::size_t at);
// The place of the empty string that closes the list; of whatever is not closed itself, when that is missing.
std::size_t EndOfList(std::u16string_view block);
// Bytes up to the closing empty string, and 4 more.
std::size_t GetListSize(std::u16string_view block);

// The place of the "=" behind the name, or the length of an entry that has none. A first "=" belongs to
// the name.
std::size_t NameLength(std::u16string_view entry);
inline std::u16string_view EntryName(std::u16string_view entry) { return entry.substr(0, NameLength(entry)); }
inline std::u16string_view EntryValue(std::u16string_view entry)
{
    const std::size_t length = NameLength(entry);
    return length < entry.size() ? entry.substr(length + 1) : std::u16string_view();
}

// Whether an entry of a list answers to `name`, which ends at its "=" or at its end.
bool NameMatches(std::u16string_view entry, std::u16string_view name, NameMatch match);
// The start of the first entry that answers to `name`, or npos.
std::size_t FindListEntry(std::u16string_view block, std::u16string_view name, NameMatch match);

// Brings the text of a definition into the form "name=value" of the store it is meant for. False when its
// name is missing or begins with a "=" that is not the one of a drive's directory ("=C:").
enum class EntryKind { Environment, ListEntry, ArrayElement };
bool NormalizeEntry(CString& entry, EntryKind kind);

// Defines, replaces or (empty value) deletes one normalised entry. False when the block has no room for it;
// the list is then unchanged.
bool UpdateList(const ListBlock& block, std::u16string_view entry, NameMatch match);
bool DeleteListEntry(const ListBlock& block, std::size_t at);
// Puts `entries`, each with its closing NUL, in the place of all others; false when they do not fit. For
// private lists: nobody can repair this one.
bool FillList(const ListBlock& block, std::u16string_view entries);
// Whether the list may become longer by `growth` units (shorter, when negative).
bool ListHasRoom(const ListBlock& block, std::ptrdiff_t growth);

// One change of a list: `text` (closing NUL included, when it has one) takes the place of `oldLength` units
// at `at`, inside the entry at `entry`. Each step leaves a list that RepairList can put right.
class ListChange {
public:
    ListChange(const ListBlock& block, std::size_t entry, std::size_t at, std::size_t oldLength,
               std::u16string_view text);
    bool Step(); // false once the list is at rest again

private:
    ListBlock block;
    std::u16string_view text;
};

// Whether a writer is at work, or left the list in the middle.
inline bool IsListChanging(const ListBlock& block) { return (block.control->changes.load() & 1) != 0; }
// For whoever holds the list's lock: whether the list was left in the middle or without its end.
bool NeedsRepair(const ListBlock& block);
// Brings a list that its writer left back to rest: the interrupted change is either completed or taken
// back; an entry whose new value was half written is removed. The caller keeps other writers out.
void RepairList(const ListBlock& block);
