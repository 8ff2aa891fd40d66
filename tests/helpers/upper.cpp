// Copies standard input to standard output with a to z as capitals; every other byte stays as it is.
#include "helper_io.h"

int wmain()
{
    std::string text = ReadInput();
    for (char& letter : text) {
        if (letter >= 'a' && letter <= 'z')
            letter = static_cast<char>(letter - 'a' + 'A');
    }
    return WriteBytes(STD_OUTPUT_HANDLE, text) ? 0 : 1;
}
