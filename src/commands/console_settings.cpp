#include "commands/console_settings.h"

#include <algorithm>
#include <iterator>

#include "core/command_switches.h"
#include "core/redirection.h"
#include "engine/break.h"
#include "engine/inifile.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "lang/console_messages.h"
#include "lang/messages.h"
#include "platform/console.h"
#include "platform/console_drawing.h"
#include "platform/file_facts.h"
#include "platform/handle.h"
#include "platform/screen_modes.h"
#include "platform/text_output.h"
#include "text/compare.h"
#include "text/numbers.h"
#include "text/web_text.h"
#include "text/words.h"

const CommandHelp fontHelp = {
    u"Shows or sets the letters of the console.",
    u"FONT [/B | /R] [/S:height[,width]] [\"name\"]",
    u"/B  bold letters; /R regular ones\n"
    u"/S  their height in pixels; the width follows it unless told\n"
    u"Without arguments name, size and weight are shown, as the function @font tells them. What is not told "
    u"stays as it is. A terminal that shows the console with letters of its own takes no notice.",
    u"font\n"
    u"font /s:20 \"Lucida Console\"",
};

const CommandHelp resolutionHelp = {
    u"Shows or sets the resolution of a monitor.",
    u"RESOLUTION [/L] [/M:number] [/P] [width height [bits [hertz]]]",
    u"/L  all resolutions that the monitor has\n"
    u"/M  the monitor, from 1; the first one unless told\n"
    u"/P  for later sessions, too\n"
    u"Without a width the present resolution is shown: width, height, bits of a pixel's color and pictures "
    u"per second.",
    u"resolution\n"
    u"resolution 1920 1080\n"
    u"resolution /l /m:2",
};

const CommandHelp saveconsoleHelp = {
    u"Saves what stands in the console's buffer in a file.",
    u"SAVECONSOLE [/A] [/H] [/V] file",
    u"/A  appends to the file\n"
    u"/H  as a web page with its colors\n"
    u"/V  what is shown only, not what can be scrolled back to\n"
    u"Blanks at the end of rows and blank rows at the end are left out. The file is written as redirected "
    u"output is: in the code page, or as the settings UTF8Output and UnicodeOutput say; a web page is UTF-8. "
    u"The setting NoClobber counts, too.",
    u"saveconsole today.txt\n"
    u"saveconsole /h/v screen.html",
};

const CommandHelp statusbarHelp = {
    u"Shows or hides the status bar of the graphical window, or tells the setting.",
    u"STATUSBAR [ON | OFF]",
    u"The setting StatusBar is changed. A console has no status bar, so there the result is an error.",
    u"statusbar",
};

const CommandHelp transientHelp = {
    u"Shows or sets whether the shell ends by itself.",
    u"TRANSIENT [ON | OFF]",
    u"A shell that was started with /C is transient: it ends when its commands have. OFF makes it stay and "
    u"show a prompt. ON makes any shell end when the line, or the batch file, that runs has. The variable "
    u"%_transient tells which it is.",
    u"transient off\n"
    u"transient on",
};

const CommandHelp vbeepHelp = {
    u"Lets the screen flash, as a beep to be seen.",
    u"VBEEP [times [milliseconds]]",
    u"Foreground and background change places for a moment: once and for 100 milliseconds unless told. "
    u"Without a console nothing happens.",
    u"vbeep\n"
    u"vbeep 3 50",
};

namespace {

int NeedsConsole() { return MVError(errors::needsConsole, Tls().commandName); }

std::optional<int> ReadNumber(std::u16string_view text, std::int64_t lowest, std::int64_t highest)
{
    const auto number = ParseInteger(text);
    if (!number || *number < lowest || *number > highest)
        return std::nullopt;
    return static_cast<int>(*number);
}

// FONT

constexpr int regularWeight = 400;
constexpr int boldWeight = 700;

bool TakeFontSize(std::u16string_view text, ConsoleFont& font)
{
    constexpr std::int64_t largest = 500;
    const std::size_t comma = text.find(u',');
    const auto height = ReadNumber(text.substr(0, comma), 1, largest);
    const auto width = comma == text.npos ? 0 : ReadNumber(text.substr(comma + 1), 0, largest);
    font.height = height.value_or(0);
    font.width = width.value_or(0);
    return height && width;
}

bool TakeFontSwitch(std::u16string_view one, ConsoleFont& font)
{
    if (EqualNoCase(one, u"B") || EqualNoCase(one, u"R")) {
        font.weight = UpperCase(one.front()) == u'B' ? boldWeight : regularWeight;
        return true;
    }
    const auto size = SwitchValue(one, u"S");
    return size && TakeFontSize(*size, font);
}

int ShowFont(const ConsoleFont& font)
{
    return PrintFormat(u"%s, %d x %d, %d\r\n", font.name, font.width, font.height, font.weight)
               ? result::success
               : MVError(0);
}

// RESOLUTION

int ShowMode(const ScreenMode& mode)
{
    return PrintFormat(u"%u %u %u %u\r\n", mode.width, mode.height, mode.bits, mode.hertz) ? result::success
                                                                                           : MVError(0);
}

int ReadMode(const std::vector<CString>& words, ScreenMode& mode)
{
    unsigned* const parts[] = {&mode.width, &mode.height, &mode.bits, &mode.hertz};
    constexpr std::int64_t largest = 65535;
    if (words.size() < 2 || words.size() > std::size(parts))
        return UsageError();
    for (std::size_t i = 0; i < words.size(); ++i) {
        const auto number = ReadNumber(words[i], 1, largest);
        if (!number)
            return MVError(errors::invalidNumber, words[i]);
        *parts[i] = static_cast<unsigned>(*number);
    }
    return result::success;
}

// SAVECONSOLE

constexpr std::uint64_t appends = 1; // of the switch letters "AHV"
constexpr std::uint64_t asPage = 2;
constexpr std::uint64_t shownOnly = 4;

class SavedScreen {
public:
    explicit SavedScreen(bool page) : html(page) {}

    bool Add(int row, int columns)
    {
        const std::vector<ConsoleCell> cells = ReadConsoleCells(row, 0, 1, columns);
        if (cells.empty())
            return false;
        const CString line = html ? PageLine(cells) : PlainLine(cells);
        // What is blank is kept when something stands below it, with its colors.
        waiting.Append(line).Append(u"\r\n");
        if (!IsBlankRow(cells)) {
            text.Append(waiting);
            waiting.Clear();
        }
        return true;
    }

    CString Whole() const
    {
        if (!html)
            return text;
        return CString(u"<!DOCTYPE html>\r\n"
                       u"<meta charset=\"utf-8\">\r\n"
                       u"<pre style=\"color:#c0c0c0;background:#000\">\r\n")
            .Append(text)
            .Append(u"</pre>\r\n");
    }

private:
    static constexpr unsigned trailingHalf = 0x200; // of a character that takes two cells

    static bool IsBlankRow(const std::vector<ConsoleCell>& cells)
    {
        return std::all_of(cells.begin(), cells.end(),
                           [](const ConsoleCell& cell) { return cell.unit == u' '; });
    }

    static CString PlainLine(const std::vector<ConsoleCell>& cells)
    {
        CString line;
        for (const ConsoleCell& cell : cells)
            if ((cell.attributes & trailingHalf) == 0)
                line.Append(cell.unit);
        return line.TrimRight();
    }

    static CString PageLine(const std::vector<ConsoleCell>& cells)
    {
        CString line;
        for (std::size_t i = 0; i < cells.size();) {
            const unsigned colors = cells[i].attributes & 0xFF;
            CString run;
            for (; i < cells.size() && (cells[i].attributes & 0xFF) == colors; ++i)
                if ((cells[i].attributes & trailingHalf) == 0)
                    run.Append(cells[i].unit);
            line.Append(Format(u"<span style=\"color:#%06x;background:#%06x\">", Look(colors & 15),
                               Look(colors >> 4)))
                .Append(EncodeHtml(run))
                .Append(u"</span>");
        }
        return line;
    }

    // Bits of a console colour are blue, green, red and bright.
    static unsigned Look(unsigned color)
    {
        constexpr unsigned white = 7;
        constexpr unsigned brightBlack = 8;
        if (color == white)
            return 0xC0C0C0;
        if (color == brightBlack)
            return 0x808080;
        const unsigned strength = (color & 8) != 0 ? 0xFF : 0x80;
        return ((color & 4) != 0 ? strength << 16 : 0) | ((color & 2) != 0 ? strength << 8 : 0) |
               ((color & 1) != 0 ? strength : 0);
    }

    bool html;
    CString waiting; // the blank rows so far
    CString text;
};

int WriteSaved(const CString& name, const SavedScreen& saved, std::uint64_t switches)
{
    const bool append = (switches & appends) != 0;
    const OwnedHandle file(CreateFileW(
        SystemPath(name).w(), append ? DWORD{FILE_APPEND_DATA} : DWORD{GENERIC_WRITE}, FILE_SHARE_READ,
        nullptr, OutputDisposition(append, false), FILE_ATTRIBUTE_NORMAL, nullptr));
    const OutputEncoding encoding = (switches & asPage) != 0 ? OutputEncoding::Utf8 : CurrentOutputEncoding();
    return file && WriteTextToFile(file.Get(), saved.Whole(), encoding) ? result::success : MVError(0, name);
}

// VBEEP

bool Flash(const ScreenFacts& screen, std::uint64_t milliseconds)
{
    const std::vector<ConsoleCell> before =
        ReadConsoleCells(screen.windowTop, screen.windowLeft, screen.windowRows, screen.windowColumns);
    std::vector<ConsoleCell> flashed = before;
    for (ConsoleCell& cell : flashed)
        cell.attributes =
            (cell.attributes & ~0xFFU) | (cell.attributes & 15) << 4 | (cell.attributes >> 4 & 15);
    const auto write = [&](const std::vector<ConsoleCell>& cells) {
        return WriteConsoleCells(screen.windowTop, screen.windowLeft, screen.windowRows, screen.windowColumns,
                                 cells);
    };
    if (!write(flashed))
        return false;
    try {
        SleepOrBreak(milliseconds);
    } catch (...) {
        write(before);
        throw;
    }
    return write(before);
}

} // namespace

int Font_Command(CString& arguments)
{
    const auto before = ReadConsoleFont();
    ConsoleFont font = before.value_or(ConsoleFont());
    CString one;
    bool any = false;
    for (; TakeLeadingSwitch(arguments, one); any = true)
        if (!TakeFontSwitch(one, font))
            return RefuseSwitch(one);
    const CString name = WithoutOuterQuotes(arguments.TrimRight());
    if (!before)
        return NeedsConsole();
    if (!any && name.empty())
        return ShowFont(font);
    if (!name.empty())
        font.name = name;
    if (!SetConsoleFont(font))
        return MVError(0);
    // Windows takes another font for one that it does not have.
    const auto after = ReadConsoleFont();
    return !after || EqualNoCase(after->name, font.name) ? result::success
                                                         : MVError(errors::consoleFont, font.name);
}

int Resolution_Command(CString& arguments)
{
    std::uint64_t switches = 0;
    CString monitorNumber;
    const bool chosen = TakeSwitchText(arguments, u"M", monitorNumber);
    if (const int code = ReadSwitches(arguments, u"LP", switches))
        return code;
    constexpr std::int64_t mostMonitors = 64;
    const auto number = chosen ? ReadNumber(monitorNumber, 1, mostMonitors) : 1;
    if (!number)
        return MVError(errors::invalidNumber, monitorNumber);
    const std::vector<CString> words = SplitArguments(arguments, true, CurrentSyntax());
    ScreenMode mode;
    if (!words.empty())
        if (const int code = ReadMode(words, mode))
            return code;
    const auto monitor = MonitorName(static_cast<unsigned>(*number));
    const auto present = monitor ? ReadScreenMode(*monitor) : std::nullopt;
    if (!present)
        return MVError(errors::noDesktop);
    if (!words.empty())
        return SetScreenMode(*monitor, mode, (switches & 2) != 0) ? result::success
                                                                  : MVError(errors::screenMode, arguments);
    if ((switches & 1) == 0)
        return ShowMode(*present);
    for (const ScreenMode& each : ScreenModes(*monitor))
        if (const int code = ShowMode(each))
            return code;
    return result::success;
}

int Saveconsole_Command(CString& arguments)
{
    std::uint64_t switches = 0;
    if (const int code = ReadSwitches(arguments, u"AHV", switches, SwitchPlace::Leading))
        return code;
    const std::vector<CString> words = SplitArguments(arguments, true, CurrentSyntax());
    if (words.size() != 1)
        return UsageError();
    const auto screen = ReadScreenFacts();
    if (!screen)
        return NeedsConsole();
    const bool part = (switches & shownOnly) != 0;
    const int first = part ? screen->windowTop : 0;
    const int end = part ? screen->windowTop + screen->windowRows : screen->rows;
    SavedScreen saved((switches & asPage) != 0);
    for (int row = first; row < end; ++row)
        if (!saved.Add(row, screen->columns))
            return MVError(0);
    return WriteSaved(WithoutQuotes(words[0]), saved, switches);
}

int Statusbar_Command(CString& arguments)
{
    bool shown = aIniFile.StatusBar != 0;
    const bool tells = arguments.Trim().empty();
    const int code = ShowOrSwitch(arguments, shown, message::statusbarState);
    aIniFile.StatusBar = static_cast<SettingChoice>(shown);
    return code != result::success || tells ? code : MVError(errors::noStatusBar);
}

int Transient_Command(CString& arguments)
{
    bool transient = aGlobals.transient != 0;
    const int code = ShowOrSwitch(arguments, transient, message::transientState);
    aGlobals.transient = transient;
    return code;
}

int Vbeep_Command(CString& arguments)
{
    constexpr std::int64_t mostTimes = 100;
    constexpr std::int64_t longest = 10000; // milliseconds
    const std::vector<CString> words = SplitArguments(arguments, true, CurrentSyntax());
    const auto times = words.empty() ? 1 : ReadNumber(words[0], 1, mostTimes);
    const auto milliseconds = words.size() < 2 ? 100 : ReadNumber(words[1], 1, longest);
    if (!times || !milliseconds)
        return MVError(errors::invalidNumber, words[times ? 1 : 0]);
    if (words.size() > 2)
        return UsageError();
    const auto screen = ReadScreenFacts();
    for (int i = 0; screen && i < *times; ++i) {
        if (i > 0)
            SleepOrBreak(static_cast<std::uint64_t>(*milliseconds));
        if (!Flash(*screen, static_cast<std::uint64_t>(*milliseconds)))
            return MVError(0);
    }
    return result::success;
}
