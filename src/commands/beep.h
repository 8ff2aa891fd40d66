// BEEP: tones and system sounds.
#pragma once

#include "engine/tables.h"

int Beep_Command(CString& arguments);
extern const CommandHelp beepHelp;
