#include "core/executable_type.h"

#include <array>

#include <windows.h>

#include "platform/file_facts.h"
#include "platform/handle.h"
#include "text/compare.h"
#include "text/path_names.h"

namespace {

constexpr std::size_t firstBlock = 1024; // nearly always holds the new header too

using Block = std::array<char, firstBlock>;

std::string_view ReadBlock(HANDLE file, std::int64_t place, Block& block)
{
    OVERLAPPED at = {};
    at.Offset = static_cast<DWORD>(place);
    at.OffsetHigh = static_cast<DWORD>(place >> 32);
    DWORD read = 0;
    if (!ReadFile(file, block.data(), static_cast<DWORD>(block.size()), &read, &at))
        return {};
    return {block.data(), read};
}

} // namespace

int GetExeType(std::u16string_view fileName)
{
    const OwnedHandle file(CreateFileW(SystemPath(fileName).w(), GENERIC_READ,
                                       FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                       OPEN_EXISTING, 0, nullptr));
    if (!file)
        return program_type::notAProgram;
    Block block;
    std::string_view bytes = ReadBlock(file.Get(), 0, block);
    const std::int64_t place = NewHeaderPlace(bytes);
    if (place < 0)
        return EqualNoCase(ExtensionPart(fileName), u".com") ? program_type::dos : program_type::notAProgram;
    if (place == 0)
        return program_type::dos;
    if (static_cast<std::size_t>(place) + newHeaderBytes <= bytes.size())
        return TypeOfNewHeader(bytes.substr(static_cast<std::size_t>(place)));
    bytes = ReadBlock(file.Get(), place, block);
    return TypeOfNewHeader(bytes);
}
