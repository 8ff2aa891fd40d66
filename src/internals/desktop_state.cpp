// Keyboard, mouse, screens, windows and the console.
#include "internals/families.h"

#include <windows.h>

#include "config/colors.h"
#include "engine/inifile.h"
#include "engine/output.h"
#include "internals/values.h"
#include "platform/console.h"
#include "platform/console_keys.h"
#include "platform/desktop.h"
#include "platform/process_family.h"
#include "platform/registry.h"
#include "platform/system_version.h"

namespace {

bool AnswerColor(CString& value, unsigned shift)
{
    const auto screen = ReadScreenFacts();
    return !screen || AnswerText(value, ColorName(screen->attributes >> shift & 0xF));
}

bool InsertMode()
{
    return aIniFile.EditMode == choice::editMode::insert || aIniFile.EditMode == choice::editMode::initInsert;
}

constexpr unsigned firstBuildWithDarkMode = 17763;

} // namespace

// 1 while the key is held down.
bool Alt_Variable(CString& value) { return AnswerFlag(value, IsKeyDown(VK_MENU)); }
bool Ctrl_Variable(CString& value) { return AnswerFlag(value, IsKeyDown(VK_CONTROL)); }
bool Shift_Variable(CString& value) { return AnswerFlag(value, IsKeyDown(VK_SHIFT)); }
bool Lalt_Variable(CString& value) { return AnswerFlag(value, IsKeyDown(VK_LMENU)); }
bool Lctrl_Variable(CString& value) { return AnswerFlag(value, IsKeyDown(VK_LCONTROL)); }
bool Lshift_Variable(CString& value) { return AnswerFlag(value, IsKeyDown(VK_LSHIFT)); }
bool Ralt_Variable(CString& value) { return AnswerFlag(value, IsKeyDown(VK_RMENU)); }
bool Rctrl_Variable(CString& value) { return AnswerFlag(value, IsKeyDown(VK_RCONTROL)); }
bool Rshift_Variable(CString& value) { return AnswerFlag(value, IsKeyDown(VK_RSHIFT)); }
// 1 while it is switched on.
bool Capslock_Variable(CString& value) { return AnswerFlag(value, IsKeyOn(VK_CAPITAL)); }
bool Numlock_Variable(CString& value) { return AnswerFlag(value, IsKeyOn(VK_NUMLOCK)); }
bool Scrolllock_Variable(CString& value) { return AnswerFlag(value, IsKeyOn(VK_SCROLL)); }
// Whether a typed key waits to be read.
bool Kbhit_Variable(CString& value) { return AnswerFlag(value, HasConsole() && IsKeyWaiting()); }

// Whether typed characters push others aside when a line begins.
bool Insert_Variable(CString& value) { return AnswerFlag(value, InsertMode()); }
bool Editmode_Variable(CString& value) { return AnswerText(value, InsertMode() ? u"Insert" : u"Overstrike"); }
// The cursor's height in percent while inserting and overstriking.
bool Ci_Variable(CString& value) { return AnswerNumber(value, aIniFile.CursorIns); }
bool Co_Variable(CString& value) { return AnswerNumber(value, aIniFile.CursorOver); }

// Colours of text to come.
bool Fg_Variable(CString& value) { return AnswerColor(value, 0); }
bool Bg_Variable(CString& value) { return AnswerColor(value, 4); }

// Where the cursor stands, from 0, in the part of the buffer that is shown.
bool Column_Variable(CString& value)
{
    const auto screen = ReadScreenFacts();
    return AnswerNumber(value, screen ? screen->cursorColumn - screen->windowLeft : 0);
}

bool Row_Variable(CString& value)
{
    const auto screen = ReadScreenFacts();
    return AnswerNumber(value, screen ? screen->cursorRow - screen->windowTop : 0);
}

// The screen buffer that is shown; the one that the console began with is 0.
bool Consoleb_Variable(CString& value) { return AnswerNumber(value, 0); }

// The processes that share this console.
bool Consolepids_Variable(CString& value)
{
    for (const unsigned process : ConsoleProcesses())
        FormatInto(value, value.empty() ? u"%u" : u" %u", {process});
    return true;
}

bool Wintitle_Variable(CString& value) { return AnswerText(value, ConsoleTitle()); }

bool Winfgwindow_Variable(CString& value)
{
    const auto window = ReadWindowFacts(ForegroundWindow());
    return !window || AnswerText(value, window->title);
}

// Pixels of the first monitor, and of the area that all of them make up.
bool Xpixels_Variable(CString& value) { return AnswerNumber(value, ReadSystemMetric(SM_CXSCREEN)); }
bool Ypixels_Variable(CString& value) { return AnswerNumber(value, ReadSystemMetric(SM_CYSCREEN)); }
bool Vxpixels_Variable(CString& value) { return AnswerNumber(value, ReadSystemMetric(SM_CXVIRTUALSCREEN)); }
bool Vypixels_Variable(CString& value) { return AnswerNumber(value, ReadSystemMetric(SM_CYVIRTUALSCREEN)); }
bool Monitors_Variable(CString& value) { return AnswerNumber(value, ReadSystemMetric(SM_CMONITORS)); }

bool Xmouse_Variable(CString& value)
{
    const auto place = MousePlace();
    return !place || AnswerNumber(value, place->x);
}

bool Ymouse_Variable(CString& value)
{
    const auto place = MousePlace();
    return !place || AnswerNumber(value, place->y);
}

// Whether the window under the mouse becomes the active one without a click.
bool Xwindow_Variable(CString& value)
{
    return AnswerFlag(value, ReadDesktopParameter(SPI_GETACTIVEWINDOWTRACKING).value_or(0) != 0);
}

bool Highcontrast_Variable(CString& value) { return AnswerFlag(value, IsHighContrast()); }

// Whether this Windows can show programs dark, and whether the user wants that.
bool Darksupported_Variable(CString& value)
{
    return AnswerFlag(value, ReadSystemVersion().build >= firstBuildWithDarkMode);
}

bool Darkenabled_Variable(CString& value)
{
    const RegistryKey key(RegistryRoot::CurrentUser,
                          u"Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize");
    return AnswerFlag(value, key.Number(u"AppsUseLightTheme").value_or(1) == 0);
}

bool Idleticks_Variable(CString& value) { return AnswerNumber(value, IdleTime()); }
