// The colours of file names in listings, by the setting ColorDir. There are none where standard output is no
// console.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "files/name_colors.h"

class ListingColors {
public:
    ListingColors();

    bool Empty() const { return colors.Empty(); }
    std::optional<unsigned> Of(std::u16string_view name, std::uint32_t attributes) const
    {
        return Empty() ? std::nullopt : colors.Of(name, attributes, screen);
    }

private:
    NameColors colors;
    unsigned screen = 0; // background x 16 + foreground
};
