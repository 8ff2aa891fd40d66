// disorder leaves the console in modes in which neither lines nor keys work as usual, in the middle of a row.
#include <windows.h>

#include <iterator>

int wmain()
{
    constexpr wchar_t half[] = L"half a row";
    const HANDLE screen = GetStdHandle(STD_OUTPUT_HANDLE);
    SetConsoleMode(GetStdHandle(STD_INPUT_HANDLE), 0);
    SetConsoleMode(screen, 0);
    WriteConsoleW(screen, half, static_cast<DWORD>(std::size(half) - 1), nullptr, nullptr);
    return 0;
}
