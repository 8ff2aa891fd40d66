// What a directory tells about each of its files. Pure; file times are in the system's units, 100 nanoseconds
// since 1601 in UTC.
#pragma once

#include <cstdint>
#include <string_view>

#include "files/attribute_masks.h"
#include "text/cstring.h"

struct EntryFacts {
    std::uint32_t attributes = 0;
    std::uint32_t reparseTag = 0; // when the attributes have reparsePoint
    std::uint64_t size = 0;       // bytes; 0 for directories
    std::uint64_t written = 0;
    std::uint64_t accessed = 0;
    std::uint64_t created = 0;

    bool IsDirectory() const { return (attributes & file_attribute::directory) != 0; }
};

// An entry while its directory is read: the names are good until the next one.
struct DirectoryEntry {
    std::u16string_view name;
    std::u16string_view shortName; // "" unless short names were asked for and it has another one
    EntryFacts facts;
};

// An entry that was selected.
struct FoundFile {
    CString name;
    CString shortName;
    EntryFacts facts;
};
