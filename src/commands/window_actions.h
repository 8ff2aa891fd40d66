// What ACTIVATE and WINDOW do with a window.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include <windows.h>

#include "text/cstring.h"

struct WindowAction {
    const struct WindowActionRow* row = nullptr;
    std::vector<int> numbers;
};

struct WindowActions {
    std::vector<WindowAction> actions;
    std::optional<CString> title; // a new one
};

// Reads "MAX TRANS=200 "title""; 0, or the result of a reported error.
int ReadWindowActions(std::u16string_view text, WindowActions& actions);
int PerformWindowActions(HWND window, const WindowActions& actions);

// The actions as the helps of both commands tell them.
#define WINDOW_ACTION_NAMES                                                                                  \
    u"MIN, MAX, RESTORE     minimized, over the whole screen, or as before\n"                                \
    u"HIDE, SHOW            not seen, and seen again\n"                                                      \
    u"TOP, BOTTOM           in front of or behind all other windows\n"                                       \
    u"TOPMOST, NOTOPMOST    always in front of others, or no longer\n"                                       \
    u"TRAY                  an icon beside the clock only; a click on it brings the window back\n"           \
    u"POS=left,top[,width,height]  its place, in pixels of the screen\n"                                     \
    u"SIZE=width,height     its size, borders included\n"                                                    \
    u"TRANS=n               how opaque it is, 0 (not seen) to 255\n"                                         \
    u"FLASH[=n]             flashes n times, or until it is in front\n"                                      \
    u"\"title\"               a new title\n"
