// What becomes of Ctrl+C, Ctrl+Break and the end of the console. The events arrive on a thread of the
// system's; it only leaves a mark, and the main thread acts on that at its poll points (engine/break.h).
#pragma once

// From now on events are ours, and the calling thread takes breaks.
void InstallBreakHandler();

// Ends the children of the current command, with exit code 3, unless they end by themselves in half a second.
void EndChildren();

// Puts everything back as after InstallBreakHandler, whatever a command or a child has changed.
void ResetBreakHandling();

// The console control handler: 1 when the event needs no more attention, 0 when the system is to end us. On
// the end of the console it first gives the main thread up to 4 seconds to shut down in order.
int ConsoleBreakHandler(unsigned long event);
