// The console's own handles, for the rooms of this floor: they lead to the console even while the standard
// handles are redirected. Null without a console. They are opened on first use and never inherited.
#pragma once

#include "platform/handle.h"

HANDLE ConsoleScreen();
HANDLE ConsoleKeyboard();
