// Prints how many bytes standard input holds.
#include "helper_io.h"

int wmain()
{
    WriteBytes(STD_OUTPUT_HANDLE, std::to_string(ReadInput().size()) + "\r\n");
    return 0;
}
