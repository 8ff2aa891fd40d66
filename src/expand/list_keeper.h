// A process without window that holds the global lists open, so that they outlive the last shell.
//
// It is another copy of the host, started with the switch that stands here, and does nothing but wait for the
// end. There is one for each user; its mark is a named event, which also ends it.
#pragma once

#include <string_view>

constexpr std::u16string_view listKeeperSwitch = u"/HoldLists"; // of the host, for this purpose only

bool QueryListKeeper();

enum class KeeperStart {
    Runs,    // since now, or since before
    NoLists, // there are no global lists
    Failed   // the reason stands in the thread's last error
};
// Answers when the keeper holds all lists that are global in this shell.
KeeperStart StartListKeeper();

// False when none runs. Answers when it has let go.
bool StopListKeeper();

// The keeper's own life. 0, or 2 when there was nothing to keep.
int KeepLists();
