// Finding the ends of lines in a block of batch text.
//
// Works on the bytes as they stand in the file, so that a label search can pass over thousands of lines
// without converting one of them. Files and texts held in memory differ in what CR CR LF means. A block may
// end anywhere: the answer then says that more of the text is needed.
#pragma once

#include <cstddef>
#include <string_view>

enum class LineEnds {
    File,  // CR CR LF, CR LF, CR and LF each end a line
    Memory // CR LF, CR and LF each end a line
};

struct SplitLine {
    std::size_t length = 0;   // bytes of the line without its end
    std::size_t consumed = 0; // bytes up to the next line; 0 at the end of the text
    bool complete = true;     // false: the block ends before it is known where the line does
};

// The line at the start of `block`. `unitSize` is 2 for UTF-16, else 1; Ctrl-Z ends the text and is never
// consumed. `lastBlock` tells that nothing follows the block; an odd byte at the end of UTF-16 is dropped.
SplitLine SplitFirstLine(std::string_view block, std::size_t unitSize, LineEnds ends,
                         bool lastBlock) noexcept;
