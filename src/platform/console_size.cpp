#include "platform/console_size.h"

#include <windows.h>

#include "platform/standard_handles.h"

ConsoleSize OutputSize()
{
    CONSOLE_SCREEN_BUFFER_INFO info;
    ConsoleSize size;
    if (GetConsoleScreenBufferInfo(StandardHandle(1), &info)) {
        size.columns = info.srWindow.Right - info.srWindow.Left + 1;
        size.rows = info.srWindow.Bottom - info.srWindow.Top + 1;
    }
    return size;
}
