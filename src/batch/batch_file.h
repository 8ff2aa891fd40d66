// The file behind a batch frame: OpenBatchFile and CloseBatchFile of engine/batch_entry.h, and the way of a
// whole file into memory (.BTM files, LOADBTM, subroutines in packed files).
#pragma once

struct BATCH_FRAME;

// Closes this frame's file alone; CloseBatchFile closes those of all frames.
void CloseFrameFile(BATCH_FRAME& frame);

// Moves the current frame's text into memory and closes the file; packed texts are unpacked on the way. The
// next line stays the same. 0, or result::error after reporting.
int LoadBatchIntoMemory();

// The other way: reading goes on from the file. Packed texts stay in memory.
void UnloadBatchFromMemory();
