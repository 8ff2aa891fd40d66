#include "console/console_modes.h"

#include "engine/console_entry.h"
#include "engine/inifile.h"
#include "engine/state.h"
#include "platform/console.h"

namespace {

constexpr unsigned greyOnBlack = 7;

bool inOrder = false; // the console's modes, since they were last looked at

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

void ConsoleANSI()
{
    aGlobals.ansiSequences = ResetConsoleModes(aIniFile.ANSI && aIniFile.ANSIWin10);
    inOrder = true;
}

void PrepareConsole()
{
    if (!inOrder)
        ConsoleANSI();
    inOrder = false; // whatever runs next may change that
    NoteColors();
}

unsigned StandardColors()
{
    NoteColors();
    return aIniFile.StdColors ? aIniFile.StdColors : static_cast<unsigned>(aGlobals.startColors);
}
