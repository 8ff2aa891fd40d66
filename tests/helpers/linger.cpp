// linger MILLISECONDS [CODE] waits and exits with CODE: a program that is still running when somebody looks.
#include <windows.h>

#include <cwchar>

int wmain(int count, wchar_t** values)
{
    if (count < 2)
        return 2;
    Sleep(std::wcstoul(values[1], nullptr, 10));
    return count > 2 ? static_cast<int>(std::wcstoul(values[2], nullptr, 0)) : 0;
}
