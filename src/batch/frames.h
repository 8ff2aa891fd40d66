// The stack of running batch files: how a frame begins and what is put back when it ends.
//
// Frames are reached by index: the array moves when a batch file starts. ExitBatchFile stands in
// engine/batch_entry.h.
#pragma once

#include <string_view>
#include <vector>

#include "engine/state.h"

// A frame that does not run yet: `arguments[0]` is the full name of the file and is replaced by
// `invokedAs`. Its echo state is that of the current frame, else the setting BatchEcho.
BATCH_FRAME NewFrame(std::vector<CString> arguments, std::u16string_view invokedAs,
                     std::u16string_view argumentText);

// Makes the frame the current one.
void PushFrame(BATCH_FRAME&& frame);

// Marks the current frame, or all of them, to end before the next line.
void AbandonFrame();
void AbandonAllFrames();

// SHIFT: moves the range of arguments, forward or (negative) back; stays within the vector.
void ShiftArguments(BATCH_FRAME& frame, long long steps);
// SHIFT /n: takes the nth argument out. Nothing happens when there is none.
void RemoveArgument(BATCH_FRAME& frame, long long position);
