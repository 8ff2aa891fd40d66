#include "commands/listing_colors.h"

#include "engine/inifile.h"
#include "engine/output.h"
#include "platform/console.h"

ListingColors::ListingColors()
{
    const std::optional<ScreenFacts> facts =
        aIniFile.ColorDir && IsConsole(1) ? ReadScreenFacts() : std::nullopt;
    if (!facts)
        return;
    colors = NameColors(aIniFile.ColorDir);
    screen = facts->attributes;
}
