// What DIR's switches ask for.
#pragma once

#include <vector>

#include "commands/file_order.h"
#include "files/attribute_masks.h"
#include "files/ranges.h"
#include "text/cstring.h"

enum class DirLayout {
    Long,   // a line for each file
    Across, // names in columns, row by row
    Down,   // names in columns, column by column
    Bare    // names alone
};

// What is shown besides or in place of the files.
enum class DirSummary {
    None,
    Everything,    // the totals of each directory and of all
    EachDirectory, // the totals of each directory
    Whole,         // those of all directories together
    Extensions     // of all directories, extension by extension
};

struct DirOptions {
    AttributeMasks attributes;
    RANGES ranges;
    std::vector<FileSortKey> order; // empty: by name, as searches answer
    WhichTime time = WhichTime::Written;
    int deepest = 0;
    DirLayout layout = DirLayout::Long;
    DirSummary summary = DirSummary::None;
    std::size_t columns = 0; // of names; 0: as many as there is room for
    bool fullNames = false;
    bool pauses = false;
    bool lowerCase = false;
    bool upperCase = false;
    bool fatNames = false;  // short names in place of long ones
    bool allocated = false; // sizes are what the files take on the disk
    bool utc = false;
    bool owners = false;
    bool streams = false;
    bool shortNames = false;
    bool header = true;
    bool footer = true;
    bool dots = true; // "." and ".."
    bool thousands = true;
};

// Takes the switches out of the arguments; they change what the options ask for already. 0, or the result of
// an error that was reported.
int ReadDirOptions(CString& arguments, DirOptions& options);
