// ORV, the console host: brings the engine up, feeds it lines until EXIT or the end of the input, and exits
// with the error level.
#include <memory>

#include <windows.h>

#include "engine/movacore.h"

namespace {

constexpr int longestTypedLine = 65536;
constexpr int typedLine = 1;

void RunTypedLines()
{
    const auto buffer = std::make_unique<char16_t[]>(longestTypedLine);
    while (!QueryExitRequested() && !QueryTransient() && ReadPromptLine(buffer.get(), longestTypedLine) >= 0)
        Command(buffer.get(), typedLine);
}

} // namespace

int wmain()
{
    START_OPTIONS options = {};
    if (ReadStartOptions(reinterpret_cast<const char16_t*>(GetCommandLineW()), &options) != 0)
        return 2;
    if (options.mode == START_OPTIONS::KeepLists)
        return KeepGlobalLists();
    if (const int failed = InitializeDLL(options.iniFile))
        return failed;
    if (options.mode != START_OPTIONS::RunAndExit)
        RunStartupFile(u"MVSTART", nullptr);
    if (options.commands)
        Command(options.commands, 0);
    RunTypedLines();
    const int code = QueryExitCode();
    ShutdownCommandProcessor();
    return code;
}
