// Prints its arguments one per line, in square brackets, as the C run-time library has split them; after /raw
// the command line as it came. Scripts use it to see what a program is really given.
#include "helper_io.h"

int wmain(int count, wchar_t** values)
{
    if (count > 1 && std::wstring_view(values[1]) == L"/raw") {
        WriteText(STD_OUTPUT_HANDLE, GetCommandLineW() + std::wstring(L"\r\n"));
        return 0;
    }
    for (int i = 1; i < count; ++i)
        WriteText(STD_OUTPUT_HANDLE, L"[" + std::wstring(values[i]) + L"]\r\n");
    return 0;
}
