// findtext TEXT prints the lines of standard input that contain TEXT (ASCII, case counts). Exits with 0 when
// there are some, else with 1.
#include "helper_io.h"

int wmain(int count, wchar_t** values)
{
    if (count != 2)
        return 2;
    std::string wanted;
    for (const wchar_t unit : std::wstring_view(values[1]))
        wanted += static_cast<char>(unit);
    std::string found;
    for (const std::string& line : SplitLines(ReadInput())) {
        if (line.find(wanted) != std::string::npos)
            found += line + "\r\n";
    }
    WriteBytes(STD_OUTPUT_HANDLE, found);
    return found.empty() ? 1 : 0;
}
