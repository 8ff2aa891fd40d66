#include "commands/internal.h"

#include "core/command_lookup.h"
#include "core/command_switches.h"
#include "engine/command_state.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/wildcards.h"
#include "text/compare.h"
#include "text/words.h"

const CommandHelp internalHelp = {
    u"Shows which internal commands may be used, and switches them off and on.",
    u"INTERNAL [/D | /E] [name ...]\n"
    u"INTERNAL /A | /B",
    u"/A  all commands may be used\n"
    u"/B  only the commands that every command prompt has\n"
    u"/D  the commands named are disabled: their names are looked for as programs\n"
    u"/E  the commands named are enabled again\n"
    u"A name may hold the wildcards * and ?. Without /D and /E the commands named, or else all that are "
    u"disabled, are listed with their state. \"*name\" and aliases do not reach a disabled command either. "
    u"INTERNAL itself stays enabled, so that all of this can be taken back.",
    u"internal\n"
    u"internal /d copy* ren\n"
    u"internal /a",
};

namespace {

constexpr std::u16string_view itself = u"INTERNAL";

enum : std::uint64_t { all = 1, basic = 2, disable = 4, enable = 8 };

int Apply(std::u16string_view pattern, std::uint64_t change)
{
    bool found = false;
    for (int i = 0; i < nInternalCommands; ++i) {
        const BUILTIN& row = aInternalCommands[i];
        if (WildcardComparison(pattern, row.name, false, true) != 0)
            continue;
        found = true;
        if (change == enable)
            EnableInternalCommand(row.name);
        else if (change == disable && !EqualNoCase(row.name, itself))
            DisableInternalCommand(row.name);
        else if (change == 0 && !PrintFormat(u"%-16s%s\r\n", row.name, OnOffText(IsCommandEnabled(row))))
            return MVError(0);
    }
    return found ? result::success : MVError(errors::unknownCommand, pattern);
}

int ListDisabled()
{
    for (int i = 0; i < nInternalCommands; ++i)
        if (!IsCommandEnabled(aInternalCommands[i]) && !PrintLine(aInternalCommands[i].name))
            return MVError(0);
    return result::success;
}

} // namespace

int Internal_Command(CString& arguments)
{
    std::uint64_t change = 0;
    if (const int code = ReadSwitches(arguments, u"ABDE", change))
        return code;
    const std::vector<CString> names = SplitArguments(arguments, true, CurrentSyntax());
    const bool takesNames = (change & (all | basic)) == 0;
    const bool single = (change & (change - 1)) == 0;
    if (!single || (takesNames ? change != 0 && names.empty() : !names.empty()))
        return UsageError();
    if (!takesNames) {
        SelectCommandSet(change == all);
        EnableInternalCommand(itself);
        return result::success;
    }
    if (names.empty())
        return ListDisabled();
    int code = result::success;
    for (const CString& name : names)
        if (const int failed = Apply(name, change))
            code = failed;
    return code;
}
