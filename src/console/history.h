// The histories: the lines typed at the prompt, and the directories that were left (or entered). The line
// editor walks them, the dispatcher adds to them, HISTORY and DIRHISTORY show and change them.
//
// Each is the local list when there is one, else the global one, which all shells of the user share; without
// either nothing is kept. All that touches a list holds the lock "MVHistorySemaphore", and breaks, for as
// long as that takes. What a line is for quick substitution and "%!" is kept here, too.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "console/history_block.h"
#include "expand/lists.h"
#include "text/cstring.h"

// The list in use, null when there is none, and its size in units.
const char16_t* HistoryStart();
const char16_t* DirHistoryStart();
std::size_t HistorySize();
std::size_t DirHistorySize();

// The entry before or behind `entry`, which is null while there is no position; null when the list is empty.
// At the ends of the command history HistWrap counts; other lists stay there. `start` is a list of the
// caller's own, closed by an empty string; null means the one in use. Other shells change global lists, so
// that an entry is to be copied at once.
const char16_t* PreviousHistoryEntry(const char16_t* entry, bool directories,
                                     const char16_t* start = nullptr);
const char16_t* NextHistoryEntry(const char16_t* entry, bool directories, const char16_t* start = nullptr);
// Removes an entry of either list in use; false when none begins there any more.
bool DeleteFromHistory(const char16_t* entry);

// Notes one of the two directories in the directory history, where each stands once.
void NoteDirectoryChange(std::u16string_view left, std::u16string_view entered);

// What the commands work on; without a scope it is the list in use.
struct HistoryList {
    ListKind kind = ListKind::History;
    std::optional<ListScope> scope;
};
bool HistoryExists(const HistoryList& list);
std::vector<CString> HistoryLines(const HistoryList& list);
// Adds lines without asking the rules, except for what HistDups says of equal ones.
void AddHistoryLines(const HistoryList& list, std::span<const CString> lines);
void ClearHistory(const HistoryList& list);
void RemoveEqualLines(const HistoryList& list);
// Remove or change the newest line that is equal, letter case included; false when there is none, or no room
// for the new text, which must not be empty.
bool DeleteHistoryLine(const HistoryList& list, std::u16string_view line);
bool ReplaceHistoryLine(const HistoryList& list, std::u16string_view line, std::u16string_view by);

// Adds the lines of a text file, which nobody may write to meanwhile. False when it cannot be opened, the
// reason in the thread's last error.
bool ReadHistoryFile(const HistoryList& list, std::u16string_view name);
