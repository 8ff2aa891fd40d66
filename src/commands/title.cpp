#include "commands/title.h"

#include "console/title.h"
#include "core/command_switches.h"
#include "engine/console_entry.h"
#include "engine/results.h"
#include "engine/state.h"
#include "text/words.h"

const CommandHelp titleHelp = {
    u"Sets the title of the console's window.",
    u"TITLE [/P] text",
    u"/P  the text holds codes as those of PROMPT, such as $P for the current directory\n"
    u"Quotes around the whole text are not part of it. With the variable TITLEPROMPT set, its text (with "
    u"codes) becomes the title again at every prompt.",
    u"title Nightly build\n"
    u"title /p $p on %computername%",
};

int Title_Command(CString& arguments)
{
    std::uint64_t flags = 0;
    CString text(arguments);
    // A title may begin with a slash: only what is exactly the switch counts.
    const SwitchRead read = GetSwitches(text, u"P", SwitchPlace::Leading, CurrentSyntax());
    if (read.refused.empty())
        flags = read.flags;
    else
        text = arguments;
    text.Trim();
    if (text.empty())
        return UsageError();
    // Of "a" "b" the first and the last quote are no pair.
    if (text.front() == u'"' && text.Find(u'"', 1) == text.size() - 1)
        text = WithoutOuterQuotes(text);
    SetStandingTitle(flags != 0 ? ExpandPrompt(text) : text);
    return result::success;
}
