// Whether two files hold the same bytes.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "text/cstring.h"

struct FileComparison {
    unsigned error = 0; // Windows error number; the name of the file that could not be read is in `failed`
    CString failed;
    bool same = false;
    std::uint64_t firstDifference = 0; // byte of the first difference when they are not the same
};

// Files of any size, read block by block. Break is thrown when the person breaks it off.
FileComparison CompareFiles(std::u16string_view left, std::u16string_view right);
