#include "commands/shralias.h"

#include "core/command_switches.h"
#include "engine/results.h"
#include "engine/state.h"
#include "expand/list_keeper.h"

const CommandHelp shraliasHelp = {
    u"Keeps global aliases, functions and histories when the last shell ends.",
    u"SHRALIAS [/U]",
    u"/U  let go: what no shell holds open is then forgotten\n"
    u"A small process without window holds them until then, or until you log off. It keeps the lists that "
    u"are global in this shell when it starts. %_shralias is 1 while it runs.",
    u"shralias\n"
    u"shralias /u",
};

int Shralias_Command(CString& arguments)
{
    std::uint64_t flags = 0;
    if (const int code = ReadSwitches(arguments, u"U", flags))
        return code;
    if (!arguments.Trim().empty())
        return UsageError();
    if (flags != 0)
        return StopListKeeper() ? result::success : MVError(errors::nothingKept);
    switch (StartListKeeper()) {
    case KeeperStart::Runs: return result::success;
    case KeeperStart::NoLists: return MVError(errors::noGlobalLists);
    default: return MVError(0, aTexts.executable);
    }
}
