// Sorting found files the way a person asks for: the switch /O of DIR, PDIR and FFIND.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "files/file_entry.h"
#include "files/ranges.h"

struct FileSortKey {
    // N name, # name with its numbers by value, E extension, S size, D date and time, T time of day, G
    // directories first, A attributes, L length of the name, I description, O owner
    char16_t letter = u'N';
    bool reverse = false;
};

#define FILE_ORDER_HELP                                                                                      \
    u"/O  sort by: N name, # name with its numbers by value, E extension, S size, D date and time, T time "  \
    u"of day, "                                                                                              \
    u"G directories first, A attributes, L length of the name, I description, O owner, U not at all; \"-\" " \
    u"in front reverses; /O alone is GN\n"

// Reads the letters behind the switch. 0, or the result of an error that was reported.
int ReadFileOrder(std::u16string_view text, std::vector<FileSortKey>& order);

// Of one directory; nothing happens without keys. `time` is the one that D and T mean.
void SortFiles(std::vector<FoundFile>& files, std::u16string_view directory,
               const std::vector<FileSortKey>& order, WhichTime time);

std::uint64_t TimeOf(const EntryFacts& facts, WhichTime which);

// Below, at or above 0 as `a` sorts before, with or after `b` when runs of digits count as numbers.
int CompareNumbersByValue(std::u16string_view a, std::u16string_view b);
