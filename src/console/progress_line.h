// The line that shows how far long work is: "45%  12/200  1.2/4.5 GB  118 MB/s  0:42  name". Pure.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "text/cstring.h"

struct ProgressFacts {
    std::uint64_t files = 0; // done
    std::uint64_t bytes = 0;
    std::uint64_t allFiles = 0; // 0: not known
    std::uint64_t allBytes = 0;
    std::uint64_t milliseconds = 0; // since the work began
};

// Three digits and a unit of 1024: "980", "1.2 KB", "118 MB".
CString ShortAmount(std::uint64_t bytes);

// At most `width` units; the name is what is cut, at its front. The time is what is left, where that can be
// told, else what has passed.
CString ProgressLine(const ProgressFacts& facts, std::u16string_view name, std::size_t width);
