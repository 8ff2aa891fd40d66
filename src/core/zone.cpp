#include "core/zone.h"

#include <array>

#include <windows.h>

#include "platform/file_facts.h"
#include "platform/handle.h"

int ZoneOfFile(std::u16string_view fileName)
{
    const CString stream = SystemPath(fileName) + u":Zone.Identifier";
    const OwnedHandle file(CreateFileW(stream.w(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                       OPEN_EXISTING, 0, nullptr));
    std::array<char, 1024> text;
    DWORD read = 0;
    if (!file || !ReadFile(file.Get(), text.data(), static_cast<DWORD>(text.size()), &read, nullptr))
        return -1;
    return ZoneOfStream({text.data(), read});
}
