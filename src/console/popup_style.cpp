#include "console/popup_style.h"

#include <algorithm>

#include "console/system_console.h"
#include "engine/inifile.h"
#include "platform/console.h"

namespace {

// Those of a console whose font is not known.
constexpr int usualCellWidth = 8; // pixels
constexpr int usualCellHeight = 16;

} // namespace

int PopupCells(int pixels, PopupSide side)
{
    const std::optional<ConsoleFont> font = ReadConsoleFont();
    int cell = side == PopupSide::Width ? usualCellWidth : usualCellHeight;
    if (const int known = !font ? 0 : side == PopupSide::Width ? font->width : font->height; known > 0)
        cell = known;
    return (std::max(0, pixels) + cell / 2) / cell;
}

ScreenArea PopupPlace(const PixelPlace& place)
{
    constexpr int leastRows = 3;
    constexpr int leastColumns = 20;
    return {PopupCells(place.top, PopupSide::Height), PopupCells(place.left, PopupSide::Width),
            std::max(leastRows, PopupCells(place.height, PopupSide::Height)),
            std::max(leastColumns, PopupCells(place.width, PopupSide::Width))};
}

PopupRequest UsualPopup()
{
    PopupRequest request;
    request.place = PopupPlace(
        {aIniFile.PopupWinLeft, aIniFile.PopupWinTop, aIniFile.PopupWinWidth, aIniFile.PopupWinHeight});
    if (aIniFile.SelectColors != 0)
        request.colors.text = static_cast<unsigned>(aIniFile.SelectColors);
    if (aIniFile.SelectStatBarColors != 0)
        request.colors.frame = static_cast<unsigned>(aIniFile.SelectStatBarColors);
    if (aIniFile.SelectedColors != 0)
        request.colors.bar = static_cast<unsigned>(aIniFile.SelectedColors);
    request.plainKeys = aIniFile.NormalPopupKey;
    request.wheel = aIniFile.MouseWheel != 0;
    return request;
}

PopupResult RunPopupList(PopupRequest request)
{
    SystemEditorConsole console;
    return console ? RunPopupList(console, std::move(request)) : PopupResult();
}
