// Keys for whatever window is in front, as if they were pressed on the keyboard.
#pragma once

#include "platform/console_keys.h"

// Presses and releases a key by its virtual key, with modifiers held, or else types its character. False
// when there is no desktop, or a program of higher rights is in front.
bool SendKey(const KeyPress& key);

// Makes Caps Lock and its like (VK_CAPITAL, VK_NUMLOCK, VK_SCROLL) lit or not.
bool SetLockKey(int virtualKey, bool on);
