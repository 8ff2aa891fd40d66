// The records of the extended history: what was typed, when, where, and what came of it. One record is one
// line of a text file in UTF-8, its fields parted by tabs, so that other programs can read it too. Pure.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "text/cstring.h"

struct ExtendedEntry {
    std::uint64_t started = 0; // file time, universal
    std::uint64_t milliseconds = 0;
    int exitCode = 0;
    CString directory;
    CString line; // may hold line ends
};

// With the line end. Tabs, line ends and backslashes inside the texts are escaped.
std::string WriteExtendedRecord(const ExtendedEntry& entry);
// Nothing when the record is none: files are edited, cut off and mixed up with others.
std::optional<ExtendedEntry> ReadExtendedRecord(std::string_view record);

// "1.3s", "2:05", "1:02:05".
CString DurationInShort(std::uint64_t milliseconds);

// All records of a file's bytes, the oldest first.
std::vector<ExtendedEntry> ReadExtendedRecords(std::string_view bytes);
// The newest records of the bytes that take no more than `most` bytes together.
std::string_view NewestRecords(std::string_view bytes, std::size_t most);
