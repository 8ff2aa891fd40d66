// Breaks (Ctrl+C): the mark that a console event sets, and the exception that unwinds to the line loop.
//
// The event handler only sets the mark and wakes the main thread. Long loops and wait wrappers call
// ThrowIfBroken; the caller of a whole line (host, batch loop, library edge) catches Break and abandons it.
#pragma once

struct Break {
    int code; // 3 for a break
};

void MarkBreak();  // from the event thread: sets the mark and wakes the main thread's waits
bool QueryBreak(); // whether a break waits
void ClearBreak();
void ThrowIfBroken(); // throws Break unless signals are held
void HoldSignals();
void EnableSignals();
