// Reading the current batch file: its text as raw lines, whether it stands in a file or in memory.
//
// A frame keeps only a byte offset; the file may be closed at any moment and the next line reopens it, so a
// script can be edited while it runs. While it is open nobody else may write it (it shares reads only), so
// the block read ahead stays true and is simply dropped when the file is closed.
#pragma once

#include <cstdint>
#include <string_view>

#include "engine/state.h"

// One line as it stands in the file.
struct RawLine {
    std::string_view bytes;   // without its end; valid until the frame is read again
    std::size_t consumed = 0; // bytes, line end included
};

// The next line of an open frame; the frame's offset moves behind it. False at the end of the text.
bool NextRawLine(BATCH_FRAME& frame, RawLine& line);

// The text of raw bytes by the encoding of the frame; the line's memory is used again.
void DecodeBatchText(const BATCH_FRAME& frame, std::string_view bytes, CString& text);

// The first bytes of a frame's open file, for judging its encoding.
std::string_view FirstBlock(BATCH_FRAME& frame);

// Back to the first line, line number 0.
void RewindFrame(BATCH_FRAME& frame);

// Positions an open file at its start.
void RewindFile(std::intptr_t file);
