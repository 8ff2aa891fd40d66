// What DIR's switches ask for.
#pragma once

#include <vector>

#include "files/attribute_masks.h"
#include "files/ranges.h"
#include "text/cstring.h"

struct DirSortKey {
    char16_t letter =
        u'N'; // N name, E extension, S size, D date and time, T time of day, G directories first
    bool reverse = false;
};

enum class DirLayout {
    Long,   // a line for each file
    Across, // names in columns, row by row
    Down,   // names in columns, column by column
    Bare    // names alone
};

struct DirOptions {
    AttributeMasks attributes;
    RANGES ranges;
    std::vector<DirSortKey> order; // empty: by name, as searches answer
    WhichTime time = WhichTime::Written;
    int deepest = 0;
    DirLayout layout = DirLayout::Long;
    bool fullNames = false;
    bool pauses = false;
    bool lowerCase = false;
    bool owners = false;
    bool streams = false;
    bool shortNames = false;
    bool header = true;
    bool footer = true;
    bool dots = true; // "." and ".."
    bool thousands = true;
};

// Takes the switches out of the arguments. 0, or the result of an error that was reported.
int ReadDirOptions(CString& arguments, DirOptions& options);
