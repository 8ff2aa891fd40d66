#include "commands/cls.h"

#include "config/colors.h"
#include "core/command_switches.h"
#include "engine/output.h"
#include "engine/results.h"
#include "platform/console.h"

const CommandHelp clsHelp = {
    u"Clears the screen.",
    u"CLS [/C /S] [color on color]",
    u"/C  clears everything that can be scrolled back to (the default)\n"
    u"/S  clears the visible part only\n"
    u"The colors stay in force for what is written next. COLOR tells their names. Redirected, a form feed is "
    u"written.",
    u"cls\n"
    u"cls bright white on blue",
};

namespace {

enum : std::uint64_t { clearBuffer = 1, clearVisible = 2 };

} // namespace

int Cls_Command(CString& arguments)
{
    std::uint64_t flags = 0;
    if (const int code = ReadSwitches(arguments, u"CS", flags))
        return code;
    arguments.Trim();
    const std::optional<unsigned> colors = ParseColorPair(arguments);
    if (!arguments.empty() && !colors)
        return MVError(errors::invalidColor, arguments);
    // Printers and files understand a form feed.
    if (!IsConsole(1))
        return Print(u"\f") ? result::success : MVError(0);
    if (colors)
        SetTextAttributes(*colors);
    return ClearScreen(flags == clearVisible ? ScreenPart::Window : ScreenPart::Buffer) ? result::success
                                                                                        : MVError(0);
}
