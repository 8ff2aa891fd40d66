#include "expand/list_keeper.h"

#include <windows.h>

#include "engine/break.h"
#include "engine/results.h"
#include "engine/state.h"
#include "expand/list_blocks.h"
#include "platform/named_event.h"
#include "platform/process.h"
#include "platform/user_name.h"
#include "text/format.h"
#include "text/path_names.h"

namespace {

constexpr DWORD step = 20; // milliseconds
constexpr int mostSteps = 500;

CString MarkName() { return CString(u"MVShralias").Append(LoggedOnUser()); }

bool HasGlobalLists()
{
    for (int kind = 0; kind < static_cast<int>(ListKind::Count); ++kind)
        if (QueryListBlock(static_cast<ListKind>(kind), ListScope::Global))
            return true;
    return false;
}

// Looks again and again, but not for ever; whether it came true.
template <typename Condition> bool WaitUntil(Condition condition)
{
    for (int i = 0; i < mostSteps && !condition(); ++i) {
        ThrowIfBroken();
        Sleep(step);
    }
    return condition();
}

} // namespace

bool QueryListKeeper() { return static_cast<bool>(NamedEvent::Open(MarkName())); }

KeeperStart StartListKeeper()
{
    if (QueryListKeeper())
        return KeeperStart::Runs;
    if (!HasGlobalLists())
        return KeeperStart::NoLists;
    ProcessStart start;
    start.program = aTexts.executable;
    start.commandLine = Format(u"\"%s\" %s", aTexts.executable, listKeeperSwitch);
    start.directory = DirectoryPart(aTexts.executable); // ours may be wanted away
    start.creation = DETACHED_PROCESS;
    start.noHandles = true;
    ChildProcess keeper;
    if (const unsigned code = keeper.Start(start)) {
        SetLastError(code);
        return KeeperStart::Failed;
    }
    WaitUntil([&] { return QueryListKeeper() || keeper.HasEnded(); });
    if (QueryListKeeper())
        return KeeperStart::Runs;
    SetLastError(keeper.HasEnded() ? ERROR_PROCESS_ABORTED : ERROR_TIMEOUT);
    return KeeperStart::Failed;
}

bool StopListKeeper()
{
    {
        const NamedEvent mark = NamedEvent::Open(MarkName());
        if (!mark)
            return false;
        mark.Set();
    }
    WaitUntil([] { return !QueryListKeeper(); });
    return true;
}

int KeepLists()
{
    const std::vector<SharedSection> lists = OpenGlobalLists();
    if (lists.empty())
        return result::error;
    // Only now: whoever started this process may end as soon as the mark is there.
    const NamedEvent mark = NamedEvent::OpenOrCreate(MarkName());
    if (mark && mark.Created())
        mark.Wait();
    return result::success;
}
