// Telling other programs that environment variables have changed.
#pragma once

// Sends every window the system's message for it and waits a moment for each that is busy. `machine` is the
// message's mark for a change that concerns all users.
void BroadcastEnvironmentChange(bool machine);
