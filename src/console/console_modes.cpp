#include "console/console_modes.h"

#include "engine/console_entry.h"
#include "engine/inifile.h"
#include "engine/state.h"
#include "platform/console.h"

namespace {

constexpr unsigned greyOnBlack = 7;

void NoteColors()
{
    if (aGlobals.startColors >= 0)
        return;
    const auto screen = ReadScreenFacts();
    aGlobals.startColors = static_cast<std::int32_t>(screen ? screen->attributes & 0xFF : greyOnBlack);
    if (aIniFile.StdColors)
        SetTextAttributes(aIniFile.StdColors);
}

} // namespace

void ConsoleANSI() { aGlobals.ansiSequences = ResetConsoleModes(aIniFile.ANSI && aIniFile.ANSIWin10); }

void PrepareConsole()
{
    ConsoleANSI();
    NoteColors();
}

unsigned StandardColors()
{
    NoteColors();
    return aIniFile.StdColors ? aIniFile.StdColors : static_cast<unsigned>(aGlobals.startColors);
}
