#include "core/executable_type.h"

namespace {

std::uint32_t Number(std::string_view bytes, std::size_t at, std::size_t size)
{
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < size && at + i < bytes.size(); ++i)
        number |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[at + i])) << (8 * i);
    return number;
}

int TypeOfPortable(std::string_view header)
{
    constexpr std::size_t optionalHeader = 24;
    constexpr std::uint32_t magic64 = 0x20B;
    constexpr std::uint32_t windowed = 2;
    constexpr std::uint32_t console = 3;
    const bool is64 = Number(header, optionalHeader, 2) == magic64;
    switch (Number(header, optionalHeader + 68, 2)) {
    case windowed: return is64 ? program_type::windowed64 : program_type::windowed32;
    case console: return is64 ? program_type::console64 : program_type::console32;
    default: return is64 ? program_type::other64 : program_type::other32;
    }
}

} // namespace

std::int64_t NewHeaderPlace(std::string_view firstBytes)
{
    constexpr std::size_t placeOfPlace = 0x3C;
    const std::string_view mark = firstBytes.substr(0, 2);
    if (mark != "MZ" && mark != "ZM")
        return -1;
    return firstBytes.size() < placeOfPlace + 4 ? 0 : Number(firstBytes, placeOfPlace, 4);
}

int TypeOfNewHeader(std::string_view header)
{
    if (header.substr(0, 4) == std::string_view("PE\0\0", 4))
        return TypeOfPortable(header);
    if (header.substr(0, 2) == "NE") {
        constexpr std::size_t targetSystem = 54;
        return Number(header, targetSystem, 1) == 1 ? program_type::console16 : program_type::windowed16;
    }
    return program_type::dos;
}
