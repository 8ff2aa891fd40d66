#include "console/popup_style.h"

#include <algorithm>

#include "console/system_console.h"
#include "engine/inifile.h"
#include "platform/console.h"

namespace {

// Those of a console whose font is not known.
constexpr int usualCellWidth = 8; // pixels
constexpr int usualCellHeight = 16;

int CellsOf(int pixels, int cell, int least)
{
    return std::max(least, (std::max(0, pixels) + cell / 2) / cell);
}

} // namespace

PopupRequest UsualPopup()
{
    constexpr int leastRows = 3;
    constexpr int leastColumns = 20;
    PopupRequest request;
    const std::optional<ConsoleFont> font = ReadConsoleFont();
    const int cellWidth = font && font->width > 0 ? font->width : usualCellWidth;
    const int cellHeight = font && font->height > 0 ? font->height : usualCellHeight;
    request.place = {CellsOf(aIniFile.PopupWinTop, cellHeight, 0),
                     CellsOf(aIniFile.PopupWinLeft, cellWidth, 0),
                     CellsOf(aIniFile.PopupWinHeight, cellHeight, leastRows),
                     CellsOf(aIniFile.PopupWinWidth, cellWidth, leastColumns)};
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
