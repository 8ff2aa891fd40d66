// Icons beside the clock: windows that are put away there, and notices that pop up from there.
//
// The icons belong to a thread of their own, which is made for the first of them. Without a desktop there are
// none.
#pragma once

#include <cstdint>

#include <windows.h>

#include "text/cstring.h"

// Hides the window behind an icon; a click on it brings the window back.
bool HideInTray(HWND window);

enum class NoticeIcon { None, Information, Warning, Error };
struct Notice {
    CString title;
    CString text;
    NoticeIcon icon = NoticeIcon::None;
    CString picture;    // an .ico file in place of the icon
    bool quiet = false; // without a sound
    std::uint64_t milliseconds = 5000;
};
// Does not wait. The number of the notice, 0 when there is no desktop, or not the picture.
unsigned ShowNotice(const Notice& notice);

enum class NoticeEnd { Shown, Clicked, Closed, TimedOut };
// What has become of the notice shown last.
NoticeEnd QueryNotice(unsigned number);

// Brings back every window that is put away, and takes all icons away. Costs nothing when there are none.
void ClearTray();
