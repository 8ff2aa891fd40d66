// What conditions ask about other programs: their windows and whether they run.
#pragma once

#include <string_view>

#include <windows.h>

enum class WindowTest { Exists, Visible, Hung };

// Whether the title of a window is the wanted one, which may hold wildcards; without them it may also be its
// beginning. "" is no title's.
bool TitleMatches(std::u16string_view wanted, std::u16string_view title);
// The foremost window of that title; of that handle, when it is a hexadecimal number; or of the process of
// that number. Null when there is none.
HWND FindTopWindow(std::u16string_view which);
// Whether a window of that title exists and passes the test.
bool WindowIs(std::u16string_view title, WindowTest test);

// Whether a program of that name runs: full name, file name, or file name without extension.
bool ApplicationRuns(std::u16string_view name);
