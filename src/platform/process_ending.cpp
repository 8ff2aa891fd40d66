#include "platform/process_ending.h"

#include <windows.h>

#include "platform/desktop.h"
#include "platform/handle.h"
#include "platform/lazy_library.h"
#include "platform/process_list.h"

namespace {

constinit LazyFunction<decltype(PostMessageW)> postMessage(libraries::user32, "PostMessageW");

bool AskToClose(unsigned process)
{
    bool asked = false;
    for (const TopWindow& window : TopWindows()) {
        const auto facts = ReadWindowFacts(window.handle);
        if (facts && facts->process == process)
            asked = postMessage(window.handle, WM_CLOSE, 0, 0) || asked;
    }
    return asked;
}

} // namespace

unsigned EndProcess(unsigned process, std::uint32_t patience)
{
    constexpr unsigned exitCode = 1;
    const OwnedHandle handle = OpenProcessFor(process, PROCESS_TERMINATE | SYNCHRONIZE);
    if (!handle)
        return GetLastError();
    if (patience > 0 && AskToClose(process) && WaitForSingleObject(handle.Get(), patience) == WAIT_OBJECT_0)
        return 0;
    if (WaitForSingleObject(handle.Get(), 0) == WAIT_OBJECT_0)
        return 0;
    return TerminateProcess(handle.Get(), exitCode) ? 0u : unsigned{GetLastError()};
}
