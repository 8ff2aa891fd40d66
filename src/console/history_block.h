// The lines of a history: oldest first, each ended by a NUL, in a block of the packed lists. Only computes;
// console/history.h knows which block to use and holds its lock.
//
// A shell may be killed in the middle of a change here: every change is one that RepairList (packed_list.h)
// can put right, and at worst the lines that were being added are lost.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "expand/packed_list.h"
#include "text/cstring.h"

// Of lines that are equal but for letter case.
enum class EqualLines { Keep, KeepFirst, KeepLast };

// Room that stays free behind the newest line, so that not every new line costs an old one.
constexpr std::size_t historySlack = 256; // units

// Whether a list of that capacity can hold the line at all, once every other line has gone.
bool FitsHistory(const ListBlock& block, std::u16string_view line);

// Adds lines behind the newest one, as `equalLines` says of those that are there already; the oldest ones
// make room. A line ends at a NUL; what is empty or does not fit is left out. Answers how many were added.
std::size_t AppendHistoryLines(const ListBlock& block, std::span<const CString> lines, EqualLines equalLines);

// Of lines that are equal but for letter case only the newest stays.
void RemoveEqualHistoryLines(const ListBlock& block);
// False when no line begins at `at`, as happens when another shell has changed the list meanwhile.
bool DeleteHistoryLine(const ListBlock& block, std::size_t at);
// The same for new text in its place; false, too, when there is no room for it.
bool ReplaceHistoryLine(const ListBlock& block, std::size_t at, std::u16string_view by);
void ClearHistoryLines(const ListBlock& block);

std::vector<CString> AllHistoryLines(std::u16string_view list);

// Where the line before or behind the one at `at` begins; npos as `at` stands outside the list, before the
// newest and behind the oldest line. At an end the answer is that end, or with `wrap` the other one. npos
// when the list is empty. A place inside a line, left over from before a change, is good enough to go on.
std::size_t OlderHistoryLine(std::u16string_view list, std::size_t at, bool wrap);
std::size_t NewerHistoryLine(std::u16string_view list, std::size_t at, bool wrap);
