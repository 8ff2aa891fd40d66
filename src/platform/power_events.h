// The computer going to sleep and waking up again.
#pragma once

// What has happened since it was last asked for.
struct PowerChanges {
    bool suspended = false;
    bool resumed = false;
};

// Begins or ends listening. False where the system cannot tell.
bool WatchPower(bool on);
PowerChanges TakePowerChanges();
