// Finding files that hold the same bytes.
//
// Files of one size are told apart by their first and last bytes, and what is left by checksums of the whole,
// so that hardly a file is read that has no twin. Names of one and the same file (hard links) are no
// duplicates of each other; where the file has a twin, all of them are answered, and IsSameFile tells them.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include "platform/file_details.h"
#include "text/cstring.h"

struct DuplicateFile {
    CString shown; // as the person named it
    CString full;
    std::uint64_t size = 0;
    std::uint64_t written = 0; // file time
    std::size_t place = 0;     // in the order in which files were found
    FileIdentity identity;     // of those that are answered
};

inline bool IsSameFile(const DuplicateFile& a, const DuplicateFile& b)
{
    return a.identity.volume == b.identity.volume && a.identity.file == b.identity.file;
}

// A file that could not be read, with the Windows error number.
using DuplicateFailure = std::function<void(unsigned, const CString&)>;

// Is told of each file before it is read.
using DuplicateWatch = std::function<void(const CString&)>;

// The groups of equal files, at least two files in each, in the order given, in the order of their first
// files. Break is thrown when the person breaks it off.
std::vector<std::vector<DuplicateFile>> FindDuplicates(const std::vector<DuplicateFile>& files,
                                                       const DuplicateFailure& failed,
                                                       const DuplicateWatch& watch);
