// The commands that ON has set in a batch file. RunOnCommands, which the dispatcher calls behind each
// command, stands in engine/batch_entry.h.
//
// Each command belongs to one frame: files that it calls neither see nor run it. While it runs it does not
// answer its own event.
#pragma once

#include "engine/state.h"

// Sets the command of an event in the frame, or with "" takes it away.
void SetOnCommand(BATCH_FRAME& frame, OnEvent event, CString command);

// Gives back what the frame's ON commands have changed in the process. Called when the frame ends.
void ReleaseOnCommands(BATCH_FRAME& frame);

// Tests ON CONDITION behind a line that answered `code`; the code that counts from now on.
int TestOnCondition(int code);

// Runs the current frame's command for the break that was taken last. False when it has none; else `code` is
// the command's answer. A break that cuts the command itself goes through.
bool RunOnBreak(int& code);

// Whether a frame outside the current one has a command for the break that was taken last.
bool CallerAwaitsBreak();
