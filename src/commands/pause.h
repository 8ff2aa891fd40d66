// PAUSE: waiting for the person at the keyboard.
#pragma once

#include "engine/tables.h"

int Pause_Command(CString& arguments);
extern const CommandHelp pauseHelp;
