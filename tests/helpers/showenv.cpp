// showenv NAME... prints each variable as a program that was started sees it: NAME=value, or NAME when it is
// not set.
#include "helper_io.h"

int wmain(int count, wchar_t** values)
{
    for (int i = 1; i < count; ++i) {
        std::wstring line = values[i];
        if (const DWORD size = GetEnvironmentVariableW(values[i], nullptr, 0)) {
            std::wstring value(size, L'\0');
            value.resize(GetEnvironmentVariableW(values[i], value.data(), size));
            line += L"=" + value;
        }
        WriteText(STD_OUTPUT_HANDLE, line + L"\r\n");
    }
    return 0;
}
