#include "platform/console.h"

#include <algorithm>

#include <windows.h>

#include "platform/console_handles.h"
#include "platform/text_output.h"

namespace {

constexpr DWORD lineInputModes = ENABLE_PROCESSED_INPUT | ENABLE_LINE_INPUT | ENABLE_ECHO_INPUT;
constexpr DWORD textOutputModes = ENABLE_PROCESSED_OUTPUT | ENABLE_WRAP_AT_EOL_OUTPUT;

bool ReadInfo(CONSOLE_SCREEN_BUFFER_INFO& info)
{
    return HasConsole() && GetConsoleScreenBufferInfo(ConsoleScreen(), &info) != FALSE;
}

// What the mode is then, which need not be what was wanted; 0 when the console does not tell. Each question
// to the console costs a way to another process.
DWORD SetMode(HANDLE console, DWORD wanted, DWORD unwanted)
{
    DWORD mode = 0;
    if (!GetConsoleMode(console, &mode))
        return 0;
    const DWORD changed = (mode | wanted) & ~unwanted;
    return changed != mode && SetConsoleMode(console, changed) ? changed : mode;
}

bool BlankCells(COORD from, DWORD count, WORD attributes)
{
    DWORD done = 0;
    return FillConsoleOutputCharacterW(ConsoleScreen(), L' ', count, from, &done) &&
           FillConsoleOutputAttribute(ConsoleScreen(), attributes, count, from, &done);
}

} // namespace

HANDLE ConsoleScreen()
{
    static const OwnedHandle screen(CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE,
                                                FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0,
                                                nullptr));
    return screen.Get();
}

HANDLE ConsoleKeyboard()
{
    static const OwnedHandle keyboard(CreateFileW(L"CONIN$", GENERIC_READ | GENERIC_WRITE,
                                                  FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                                  0, nullptr));
    return keyboard.Get();
}

bool HasConsole() { return ConsoleScreen() != nullptr; }

bool WriteToConsole(std::u16string_view text)
{
    return HasConsole() && WriteTextToConsole(ConsoleScreen(), text);
}

std::optional<ScreenFacts> ReadScreenFacts()
{
    CONSOLE_SCREEN_BUFFER_INFO info;
    if (!ReadInfo(info))
        return std::nullopt;
    ScreenFacts facts;
    facts.columns = info.dwSize.X;
    facts.rows = info.dwSize.Y;
    facts.windowTop = info.srWindow.Top;
    facts.windowLeft = info.srWindow.Left;
    facts.windowRows = info.srWindow.Bottom - info.srWindow.Top + 1;
    facts.windowColumns = info.srWindow.Right - info.srWindow.Left + 1;
    facts.cursorColumn = info.dwCursorPosition.X;
    facts.cursorRow = info.dwCursorPosition.Y;
    facts.attributes = info.wAttributes;
    return facts;
}

CString ReadScreenText(int row, int column, int count)
{
    CString text;
    DWORD done = 0;
    const COORD from = {static_cast<SHORT>(column), static_cast<SHORT>(row)};
    const DWORD wanted = static_cast<DWORD>(count);
    wchar_t* units = reinterpret_cast<wchar_t*>(text.Edit(wanted));
    if (HasConsole() && ReadConsoleOutputCharacterW(ConsoleScreen(), units, wanted, from, &done))
        text.SetLength(std::min(done, wanted));
    return text;
}

unsigned ReadScreenAttributes(int row, int column)
{
    WORD attributes = 0;
    DWORD done = 0;
    const COORD from = {static_cast<SHORT>(column), static_cast<SHORT>(row)};
    if (HasConsole())
        ReadConsoleOutputAttribute(ConsoleScreen(), &attributes, 1, from, &done);
    return attributes & 0xFF;
}

std::optional<ConsoleFont> ReadConsoleFont()
{
    CONSOLE_FONT_INFOEX info = {};
    info.cbSize = sizeof info;
    if (!HasConsole() || !GetCurrentConsoleFontEx(ConsoleScreen(), FALSE, &info))
        return std::nullopt;
    return ConsoleFont{reinterpret_cast<const char16_t*>(info.FaceName), info.dwFontSize.X, info.dwFontSize.Y,
                       static_cast<int>(info.FontWeight)};
}

bool SetConsoleFont(const ConsoleFont& font)
{
    CONSOLE_FONT_INFOEX info = {};
    info.cbSize = sizeof info;
    info.dwFontSize = {static_cast<SHORT>(font.width), static_cast<SHORT>(font.height)};
    info.FontWeight = static_cast<UINT>(font.weight);
    const std::u16string_view name = font.name.view().substr(0, std::size(info.FaceName) - 1);
    std::copy(name.begin(), name.end(), info.FaceName);
    const std::optional<ConsoleFont> present = ReadConsoleFont();
    if (!present || present->height == 0) {
        SetLastError(ERROR_NOT_SUPPORTED);
        return false;
    }
    return SetCurrentConsoleFontEx(ConsoleScreen(), FALSE, &info);
}

bool SetTextAttributes(unsigned attributes)
{
    return HasConsole() && SetConsoleTextAttribute(ConsoleScreen(), static_cast<WORD>(attributes));
}

PassingColors::PassingColors(unsigned attributes)
{
    CONSOLE_SCREEN_BUFFER_INFO info;
    if (attributes != 0 && ReadInfo(info) && SetTextAttributes(attributes))
        before = info.wAttributes;
}

PassingColors::~PassingColors()
{
    if (before)
        SetTextAttributes(*before);
}

bool PaintScreen(unsigned attributes)
{
    CONSOLE_SCREEN_BUFFER_INFO info;
    if (!ReadInfo(info) || !SetTextAttributes(attributes))
        return false;
    const DWORD cells = static_cast<DWORD>(info.dwSize.X) * static_cast<DWORD>(info.dwSize.Y);
    DWORD done = 0;
    return FillConsoleOutputAttribute(ConsoleScreen(), static_cast<WORD>(attributes), cells, {0, 0}, &done);
}

bool ClearScreen(ScreenPart part)
{
    CONSOLE_SCREEN_BUFFER_INFO info;
    if (!ReadInfo(info))
        return false;
    // Blank whole rows of the buffer: what stands beside a narrow window would be left over otherwise.
    const bool window = part == ScreenPart::Window;
    const COORD from = {0, window ? info.srWindow.Top : SHORT(0)};
    const int rows = window ? info.srWindow.Bottom - info.srWindow.Top + 1 : info.dwSize.Y;
    const DWORD cells = static_cast<DWORD>(info.dwSize.X) * static_cast<DWORD>(rows);
    return BlankCells(from, cells, info.wAttributes) && SetConsoleCursorPosition(ConsoleScreen(), from);
}

CString ConsoleTitle()
{
    // Longer titles are cut; Windows itself shows no more than a few hundred characters.
    constexpr DWORD longestTitle = 4096;
    CString title;
    if (HasConsole()) {
        wchar_t* buffer = reinterpret_cast<wchar_t*>(title.Edit(longestTitle));
        title.SetLength(std::min(GetConsoleTitleW(buffer, longestTitle), longestTitle - 1));
    }
    return title;
}

bool ChangeConsoleTitle(const CString& title) { return HasConsole() && SetConsoleTitleW(title.w()) != FALSE; }

bool ResetConsoleModes(bool escapeSequences)
{
    if (!HasConsole())
        return false;
    if (ConsoleKeyboard())
        SetMode(ConsoleKeyboard(), lineInputModes, ENABLE_VIRTUAL_TERMINAL_INPUT);
    const DWORD sequences = ENABLE_VIRTUAL_TERMINAL_PROCESSING;
    const DWORD mode = SetMode(ConsoleScreen(), textOutputModes | (escapeSequences ? sequences : 0),
                               escapeSequences ? 0 : sequences);
    return (mode & sequences) != 0;
}
