// The differences of two files, line by line or byte by byte: what DIFFER shows.
#pragma once

#include <cstddef>

#include "commands/listing_output.h"
#include "text/cstring.h"

struct FileDifferOptions {
    std::size_t context = 3; // lines around a change
    bool bytes = false;      // never line by line
    bool ignoresCase = false;
    bool ignoresBlanks = false; // one blank is like many, and those at the ends of a line do not count
    bool header = true;
    bool quiet = false;
};

// The results of a comparison.
namespace differ_result {
constexpr int same = 0;
constexpr int different = 1;
constexpr int failed = 2; // reported
} // namespace differ_result

int DifferFiles(const CString& left, const CString& right, const FileDifferOptions& options,
                ListingOutput& output);
