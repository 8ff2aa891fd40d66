// A picture of the screen or of one window, as a bitmap file.
#pragma once

#include <string_view>

#include <windows.h>

// Writes the picture in the place of the file, all or nothing; a null window means all monitors. 0, or a
// Windows error number: ERROR_INVALID_HANDLE when there is no screen to see.
unsigned SavePicture(std::u16string_view fileName, HWND window);
