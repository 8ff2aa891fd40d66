#include "text/size_units.h"

#include <string_view>

std::optional<std::int64_t> UnitBytes(char16_t letter) noexcept
{
    constexpr std::u16string_view decimal = u"bkmgtp";
    constexpr std::u16string_view binary = u"BKMGTP";
    const bool isBinary = binary.find(letter) != binary.npos;
    const std::size_t power = isBinary ? binary.find(letter) : decimal.find(letter);
    if (power == decimal.npos)
        return std::nullopt;
    std::int64_t bytes = 1;
    for (std::size_t i = 0; i < power; ++i)
        bytes *= isBinary ? 1024 : 1000;
    return bytes;
}
