#include "console/console_look.h"

#include <algorithm>

#include "engine/inifile.h"
#include "platform/console_window.h"

void PlaceWindowAsSet()
{
    if (aIniFile.WindowState == choice::windowState::standard)
        return;
    auto shape = WindowShape::Placed;
    switch (aIniFile.WindowState) {
    case choice::windowState::maximize: shape = WindowShape::Maximized; break;
    case choice::windowState::minimize: shape = WindowShape::Minimized; break;
    case choice::windowState::hidden: shape = WindowShape::Hidden; break;
    default: break;
    }
    PlaceConsoleWindow({shape, static_cast<int>(aIniFile.WindowX), static_cast<int>(aIniFile.WindowY),
                        static_cast<int>(aIniFile.WindowWidth), static_cast<int>(aIniFile.WindowHeight)});
}

void MakeWindowAsOpaqueAsSet()
{
    static bool seeThrough = false; // something is to be taken back
    const unsigned opacity = std::min(aIniFile.Transparency, opaqueWindow);
    if (opacity < opaqueWindow || seeThrough)
        SetConsoleOpacity(opacity);
    seeThrough = opacity < opaqueWindow;
}
