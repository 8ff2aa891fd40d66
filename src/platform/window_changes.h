// Changing windows: this process's, the console's, or those of other programs, as far as Windows lets us.
//
// Places and sizes are in pixels of the virtual screen. All answer false, the reason in the last error, when
// the window is gone, belongs to a program of higher rights, or there is no desktop.
#pragma once

#include <optional>
#include <string_view>

#include <windows.h>

bool BringToFront(HWND window);

enum class WindowShow { Hidden, Shown, Minimized, Maximized, Restored };
bool ShowWindowAs(HWND window, WindowShow how);

enum class WindowOrder { Top, Bottom, AlwaysOnTop, NotAlwaysOnTop };
bool OrderWindow(HWND window, WindowOrder order);

bool MoveWindowTo(HWND window, std::optional<POINT> place, std::optional<SIZE> size);
bool SetWindowOpacity(HWND window, unsigned opacity); // 0, which shows nothing, to 255
// `count` times; without one until it comes to the front.
bool FlashWindow(HWND window, std::optional<unsigned> count);
// Asks it to close, which it may do later or not at all.
bool AskToClose(HWND window);
bool SetWindowTitle(HWND window, std::u16string_view title);
