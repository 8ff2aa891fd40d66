#include "commands/window.h"

#include <utility>

#include "batch/window_tests.h"
#include "commands/window_actions.h"
#include "console/title.h"
#include "core/command_switches.h"
#include "engine/output.h"
#include "engine/results.h"
#include "lang/console_messages.h"
#include "platform/desktop.h"
#include "platform/window_changes.h"
#include "text/compare.h"
#include "text/words.h"

const CommandHelp activateHelp = {
    u"Brings the window of a program to the front, or changes it.",
    u"ACTIVATE [/A] window [action ...]",
    u"/A  all windows of that title, not only the foremost\n" //
    WINDOW_ACTION_NAMES                                       //
    u"CLOSE                 asks it to close, as a click on its cross does\n"
    u"The window is given by its title, in double quotes when it holds blanks, wildcards allowed; without "
    u"them by the beginning of it. The number of a process and the handle of a window (0x and hexadecimal) "
    u"will do, too. Without actions it comes to the front. The result is 2 when there is no such window.",
    u"activate \"Untitled*\"\n"
    u"activate *calculator topmost pos=0,0\n"
    u"activate /a *notepad close",
};

const CommandHelp windowHelp = {
    u"Shows or changes the console's window.",
    u"WINDOW [action ...]",
    WINDOW_ACTION_NAMES u"Without actions its state, place and size are shown. A console that a terminal "
                        u"shows in a tab has no window of its own to be changed.",
    u"window max\n"
    u"window pos=0,0,800,600 trans=220 \"My console\"",
};

namespace {

std::vector<HWND> WindowsOf(std::u16string_view which, bool all)
{
    std::vector<HWND> found;
    if (const HWND first = FindTopWindow(which))
        found.push_back(first);
    for (const TopWindow& window : TopWindows())
        if (all && !found.empty() && window.handle != found.front() && TitleMatches(which, window.title))
            found.push_back(window.handle);
    if (!found.empty() && !ReadWindowFacts(found.front())) // a handle of nothing
        found.clear();
    return found;
}

int ShowConsoleWindow(const WindowFacts& facts)
{
    const std::u16string_view state = !facts.visible    ? u"HIDE"
                                      : facts.minimized ? u"MIN"
                                      : facts.maximized ? u"MAX"
                                                        : u"RESTORE";
    return PrintFormat(u"%s pos=%d,%d,%d,%d%s \"%s\"\r\n", state, facts.place.left, facts.place.top,
                       facts.place.right - facts.place.left, facts.place.bottom - facts.place.top,
                       facts.topmost ? u" TOPMOST" : u"", facts.title)
               ? result::success
               : MVError(0);
}

} // namespace

int Activate_Command(CString& arguments)
{
    bool all = false;
    CString one;
    while (TakeLeadingSwitch(arguments, one)) {
        if (!EqualNoCase(one, u"A"))
            return RefuseSwitch(one);
        all = true;
    }
    const Word title = NextBlankWord(arguments, 0);
    if (title.length == 0)
        return UsageError();
    const CString which = WithoutQuotes(arguments.view().substr(title.start, title.length));
    WindowActions actions;
    if (const int code = ReadWindowActions(arguments.view().substr(title.end()), actions))
        return code;
    const std::vector<HWND> windows = WindowsOf(which, all);
    if (windows.empty())
        return MVError(errors::noWindow, which);
    for (const HWND window : windows) {
        if (const int code = PerformWindowActions(window, actions))
            return code;
        if (actions.actions.empty() && !actions.title && !BringToFront(window))
            return MVError(0, which);
    }
    return result::success;
}

int Window_Command(CString& arguments)
{
    WindowActions actions;
    if (const int code = ReadWindowActions(arguments, actions))
        return code;
    // The shell puts its own title back after each command.
    const bool named = actions.title.has_value();
    if (named)
        SetStandingTitle(*std::exchange(actions.title, std::nullopt));
    if (named && actions.actions.empty())
        return result::success;
    const HWND window = ConsoleWindow();
    const auto facts = ReadWindowFacts(window);
    if (!facts)
        return MVError(errors::noConsoleWindow);
    return actions.actions.empty() ? ShowConsoleWindow(*facts) : PerformWindowActions(window, actions);
}
