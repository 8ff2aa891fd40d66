#include "commands/color.h"

#include "config/colors.h"
#include "console/console_modes.h"
#include "engine/results.h"
#include "engine/state.h"
#include "platform/console.h"
#include "text/compare.h"

const CommandHelp colorHelp = {
    u"Sets the colors of the screen, or puts back the usual ones.",
    u"COLOR [color on color | bf]",
    u"The names are Black, Blue, Green, Cyan, Red, Magenta, Yellow and White, each also with Bright in "
    u"front; three letters of a word are enough. Gray is Bright Black, Brown is Yellow, and the numbers 0 to "
    u"15 stand for the names in this order, the bright ones last. A foreground alone keeps the background.\n"
    u"b and f are background and foreground as hexadecimal digits, 0 to 7 in the order of the names, 8 to F "
    u"for the bright ones. The two must differ.",
    u"color bright yellow on blue\n"
    u"color 1e",
};

namespace {

std::optional<unsigned> ParseForeground(std::u16string_view text)
{
    std::size_t at = 0;
    const std::optional<unsigned> foreground = ReadColor(text, at);
    if (!foreground || at != text.size())
        return std::nullopt;
    const std::optional<ScreenFacts> screen = ReadScreenFacts();
    return (screen ? screen->attributes & 0xF0 : 0) | *foreground;
}

std::optional<unsigned> ParseColors(std::u16string_view text)
{
    std::optional<unsigned> colors = ParseColorDigits(text);
    if (!colors)
        colors = ParseColorPair(text);
    if (!colors)
        colors = ParseForeground(text);
    const bool readable = colors && (*colors & 15) != *colors >> 4;
    return readable ? colors : std::nullopt;
}

} // namespace

int Color_Command(CString& arguments)
{
    arguments.Trim();
    const unsigned usual = StandardColors();
    const std::optional<unsigned> colors = arguments.empty() ? usual : ParseColors(arguments);
    if (!colors) {
        // Scripts write "color 00", which no screen can show, for an error level that nobody sees.
        const bool quiet = CurrentSyntax().openQuotes && ParseColorDigits(arguments);
        return quiet ? Tls().errorLevel = result::error : MVError(errors::invalidColor, arguments);
    }
    // There is nothing to colour without a console, which is no fault of the script.
    return !HasConsole() || PaintScreen(*colors) ? result::success : MVError(0);
}
