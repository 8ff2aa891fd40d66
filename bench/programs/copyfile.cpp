// Copies one file with the system's own function and nothing around it: copyfile FROM TO.
#include <windows.h>

int wmain(int count, wchar_t** arguments)
{
    return count == 3 && CopyFileExW(arguments[1], arguments[2], nullptr, nullptr, nullptr, 0) ? 0 : 1;
}
