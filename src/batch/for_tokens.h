// FOR /F: its option string, and cutting lines into tokens by it. Pure.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "text/cstring.h"

struct ForOptions {
    char16_t comment = u';'; // lines that begin with it are passed over; 0 for none
    unsigned skip = 0;       // lines at the beginning that are passed over
    CString delimiters = u" \t";
    std::uint32_t tokens = 1; // bit n - 1 for token n
    bool rest = false;        // "*": everything behind the last token, as one value more
    bool backQuotes = false;  // usebackq
};

constexpr unsigned mostTokens = 31;

// Reads "eol=c skip=n delims=xyz tokens=a,b-c* usebackq", without quotes around it. False for anything else.
bool ReadForOptions(std::u16string_view text, ForOptions& options);

// The values of a line, one for each token asked for, missing ones empty. False when the line is passed over:
// it is empty, a comment, or has none of the tokens. The values are parts of the line.
bool CutForLine(std::u16string_view line, const ForOptions& options,
                std::vector<std::u16string_view>& values);
