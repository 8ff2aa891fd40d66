// Popup lists on the process's console, with the place and the colours that the settings say.
#pragma once

#include "console/popup_list.h"

// A place in pixels, as settings tell it, in cells of the console's font.
struct PixelPlace {
    int left;
    int top;
    int width;
    int height;
};
ScreenArea PopupPlace(const PixelPlace& place);
enum class PopupSide { Width, Height };
int PopupCells(int pixels, PopupSide side);

// A request that has everything but title and lines.
PopupRequest UsualPopup();

// Nothing is picked without a console. Not while the line editor reads: it has the console already.
PopupResult RunPopupList(PopupRequest request);
