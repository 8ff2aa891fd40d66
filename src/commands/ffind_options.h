// What FFIND's switches ask for.
#pragma once

#include <optional>
#include <vector>

#include "commands/file_order.h"
#include "files/attribute_masks.h"
#include "files/byte_search.h"
#include "files/line_search.h"
#include "files/ranges.h"
#include "text/cstring.h"

struct FfindOptions {
    std::optional<LineSearch> lines; // what lines must hold
    std::optional<ByteSearch> bytes; // what the file must hold, as bytes
    AttributeMasks attributes;
    RANGES ranges;
    std::vector<FileSortKey> order;
    CString drives; // letters; the names are looked for from their roots
    int deepest = 0;
    std::size_t context = 0; // lines around a match
    bool bare = false;
    bool firstFileOnly = false;
    bool header = true;
    bool lineNumbers = false;
    bool totals = true;
    bool inverse = false; // files that do not hold it
    bool pauses = false;
    bool summaryOnly = false;
    bool allMatches = false;
    bool asks = false;

    bool SearchesContents() const { return lines || bytes; }
};

// The names as they are looked for: each from the roots of all drives when some were told.
std::vector<CString> NamesOnDrives(const FfindOptions& options, std::vector<CString> names);

// Takes the switches out of the arguments. 0, or the result of an error that was reported.
int ReadFfindOptions(CString& arguments, FfindOptions& options);
