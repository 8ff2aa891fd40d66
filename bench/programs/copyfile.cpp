// Copies one file with the system's own function and nothing around it: copyfile FROM TO. What stands at the
// target goes first, as in the bench's other contestants.
#include <windows.h>

int wmain(int count, wchar_t** arguments)
{
    if (count != 3)
        return 1;
    DeleteFileW(arguments[2]);
    return CopyFileExW(arguments[1], arguments[2], nullptr, nullptr, nullptr, 0) ? 0 : 1;
}
