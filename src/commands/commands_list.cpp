#include "commands/commands_list.h"

#include <algorithm>
#include <vector>

#include "core/command_lookup.h"
#include "core/command_switches.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/wildcards.h"
#include "lang/messages.h"
#include "platform/console_size.h"
#include "text/words.h"

const CommandHelp commandsHelp = {
    u"Lists the internal commands, disabled ones in parentheses.",
    u"COMMANDS [/UNBUILT] [name ...]\n"
    u"?",
    u"/UNBUILT  only the commands that this version does not have yet, and how many there are\n"
    u"A name may hold the wildcards * and ?.",
    u"commands\n"
    u"commands echo*\n"
    u"commands /unbuilt",
};

namespace {

bool MatchesAny(const std::vector<CString>& patterns, std::u16string_view name)
{
    return patterns.empty() || std::any_of(patterns.begin(), patterns.end(), [&](const CString& pattern) {
               return WildcardComparison(pattern, name, false, true) == 0;
           });
}

// The names in as many columns as fit.
CString InColumns(const std::vector<CString>& names, int width)
{
    std::size_t longest = 0;
    for (const CString& name : names)
        longest = std::max(longest, name.size());
    const std::size_t column = longest + 2;
    const std::size_t columns = std::max<std::size_t>(1, static_cast<std::size_t>(width) / column);
    CString text;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const bool lastInRow = (i + 1) % columns == 0 || i + 1 == names.size();
        text += lastInRow ? names[i] + u"\r\n" : Format(u"%-*s", column, names[i]);
    }
    return text;
}

} // namespace

int Cmds_Command(CString& arguments)
{
    const bool onlyUnbuilt = TakeSwitchWord(arguments, u"unbuilt");
    std::uint64_t flags = 0;
    if (const int code = ReadSwitches(arguments, u"", flags))
        return code;
    const std::vector<CString> patterns = SplitArguments(arguments, true, CurrentSyntax());
    std::vector<CString> names;
    for (int i = 0; i < nInternalCommands; ++i) {
        const BUILTIN& row = aInternalCommands[i];
        if ((onlyUnbuilt && row.handler != Unbuilt_Command) || !MatchesAny(patterns, row.name))
            continue;
        names.push_back(IsCommandEnabled(row) ? CString(row.name) : Format(u"(%s)", row.name));
    }
    CString text = InColumns(names, OutputSize().columns);
    if (onlyUnbuilt)
        text.Append(LoadMessage(message::unbuiltCount, Format(u"%u", names.size()))).Append(u"\r\n");
    return Print(text) ? result::success : MVError(0);
}
