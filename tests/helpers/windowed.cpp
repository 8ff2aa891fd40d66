// windowed MILLISECONDS [CODE] is "linger" as a program of the windowed kind (without a window): a shell does
// not wait for it where it waits for console programs.
#include <windows.h>

#include <cwchar>

int wmain(int count, wchar_t** values)
{
    if (count < 2)
        return 2;
    Sleep(std::wcstoul(values[1], nullptr, 10));
    return count > 2 ? static_cast<int>(std::wcstoul(values[2], nullptr, 0)) : 0;
}
