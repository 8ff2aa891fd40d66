// SHORTCUT: shows, makes and changes the desktop's shortcuts.
#pragma once

#include "engine/tables.h"

int Shortcut_Command(CString& arguments);

extern const CommandHelp shortcutHelp;
