// KEYBD, KEYS and KEYSTACK: the lights of the keyboard, what keys do on the command line, and keys that a
// script presses.
#pragma once

#include "engine/tables.h"

int Keybd_Command(CString& arguments);
int Keys_Command(CString& arguments);
int Keystack_Command(CString& arguments);

extern const CommandHelp keybdHelp;
extern const CommandHelp keysHelp;
extern const CommandHelp keystackHelp;
