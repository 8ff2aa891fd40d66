// Sorts the lines of standard input by their bytes; /r the other way round.
#include "helper_io.h"

#include <algorithm>
#include <functional>

int wmain(int count, wchar_t** values)
{
    std::vector<std::string> lines = SplitLines(ReadInput());
    if (count > 1 && std::wstring_view(values[1]) == L"/r")
        std::sort(lines.begin(), lines.end(), std::greater<>());
    else
        std::sort(lines.begin(), lines.end());
    std::string sorted;
    for (const std::string& line : lines)
        sorted += line + "\r\n";
    return WriteBytes(STD_OUTPUT_HANDLE, sorted) ? 0 : 1;
}
