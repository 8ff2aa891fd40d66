// Running the lines of the current batch file; RunBatchFile itself stands in engine/batch_entry.h.
#pragma once

// Runs the current frame from its offset on, and whatever file is chained in its place, until it ends. 0 at
// the end of the file or when the frame was told to end, breakResult after a break, result::abandonBatch when
// a line ended the loop, or result::error when the file could not be read.
int BatchLineLoop();

constexpr int breakResult = 3;

class CString;
// Runs one line that was read from the current batch file, and what belongs to every such line: tracing and
// ON CONDITION.
int RunBatchLine(CString line);
