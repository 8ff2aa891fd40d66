// The .LNK files by which the desktop starts programs.
//
// Reading and writing answer 0 or a Windows error number.
#pragma once

#include <string_view>

#include <windows.h>

#include "text/cstring.h"

struct ShortcutFacts {
    CString target;
    CString arguments;
    CString directory; // that the program starts in
    CString description;
    CString icon; // the file that holds it, "" for the target's own
    int iconNumber = 0;
    unsigned short hotkey = 0;      // a virtual key, and the bits HOTKEYF_... times 256
    int showWindow = SW_SHOWNORMAL; // or SW_SHOWMAXIMIZED, SW_SHOWMINNOACTIVE
    bool elevated = false;          // starts with an administrator's rights
};

unsigned ReadShortcut(std::u16string_view name, ShortcutFacts& facts);
// Makes the file, or replaces it as a whole.
unsigned WriteShortcut(std::u16string_view name, const ShortcutFacts& facts);
