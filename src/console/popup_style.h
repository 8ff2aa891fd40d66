// Popup lists on the process's console, with the place and the colours that the settings say.
#pragma once

#include "console/popup_list.h"

// A request that has everything but title and lines.
PopupRequest UsualPopup();

// Nothing is picked without a console. Not while the line editor reads: it has the console already.
PopupResult RunPopupList(PopupRequest request);
