#include "lifecycle/startup.h"

#include <windows.h>

#include "config/ini_file.h"
#include "console/prompt.h"
#include "core/command_lookup.h"
#include "core/pipes.h"
#include "core/pseudo_devices.h"
#include "core/threads.h"
#include "engine/batch_entry.h"
#include "engine/break.h"
#include "engine/command_state.h"
#include "engine/console_entry.h"
#include "engine/inifile.h"
#include "engine/language_library.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "expand/lists.h"
#include "lifecycle/breaks.h"
#include "lifecycle/history_files.h"
#include "lifecycle/session_start.h"
#include "lifecycle/start_options.h"
#include "platform/com.h"
#include "platform/file_facts.h"
#include "platform/module.h"
#include "platform/system_folder_view.h"
#include "platform/tray_icon.h"

namespace {

void InitializeGlobalVariables()
{
    TLS_VARIABLES& tls = Tls();
    tls.breakPending = false;
    tls.breakHappened = false;
    tls.blocks = {};
    aGlobals.startTicks = GetTickCount();
    aTexts.executable = LongPathName(ModuleFileName(nullptr));
    aTexts.startDirectory = CurrentDirectory();
}

// Settings that commands change while the shell runs start from the configuration.
void TakeWorkingSwitches()
{
    if (Tls().pipeChild)
        return; // they came from the other side of the pipe
    aGlobals.delayedExpansion = aIniFile.DelayedExpansion;
    aGlobals.cmdExtensions = aIniFile.CMDExtensions;
}

int LoadConfiguration(std::u16string_view iniName)
{
    InitializeIniFile();
    DefaultINI(u"MOVA.INI");
    if (!iniName.empty() && ProcessINI(iniName) != 0)
        return MVError(GetLastError(), iniName);
    for (const CString& directive : aTexts.startDirectives)
        ObeyIniLine(directive.view().substr(2), SettingOrigin::CommandLine);
    return result::success;
}

// One part of starting or stopping: a break ends it, and the next part has its turn.
template <typename Work> void EndAtBreak(Work work)
{
    try {
        work();
    } catch (const Break&) {
        ClearBreak();
    }
}

} // namespace

void ApplyStartOptions(const StartOptions& options)
{
    aTexts.startDirectives = options.directives;
    aGlobals.localLists = static_cast<std::int32_t>(options.localLists);
    aGlobals.noInheritance = options.noInheritance;
    aGlobals.noAutoRun = options.noAutoRun;
    aGlobals.unicodeOutput = options.unicodeOutput;
    aGlobals.transient = options.mode == StartOptions::Mode::RunAndExit;
    aGlobals.showsName = options.mode == StartOptions::Mode::Interactive;
    aGlobals.echo = options.echoOff ? 0 : 1;
}

int StartEngine(std::u16string_view iniName)
{
    EnableSignals();
    InitializeGlobalVariables();
    InheritPipeContext();
    const int configured = LoadConfiguration(iniName);
    if (configured != result::success)
        return configured;
    TakeWorkingSwitches();
    CountNestedShell();
    LoadLanguageOfSettings();
    InitializeLocalGlobalLists();
    DisableInternalCommand(u"DDEEXEC");
    PrepareSession();
    if (IsConsole(1))
        ConsoleANSI();
    RedirectSystemFolder(aIniFile.Wow64FsRedirection != 0);
    InstallBreakHandler();
    ShowSession();
    EndAtBreak(ReadHistoryFiles);
    return result::success;
}

void StopEngine()
{
    FinishThreads(break_event::EndsShell(Tls().breakEvent));
    EndAtBreak([] {
        while (ExitBatchFile() == result::success) {
        }
    });
    if (aIniFile.ExitFile && !aGlobals.transient && !aGlobals.exitFileRun) {
        aGlobals.exitFileRun = 1;
        EndAtBreak([] { RunStartupFiles(u"MVEXIT", {}); });
    }
    EndAtBreak(WriteHistoryFiles);
    DeleteTemporaryDevices();
    ClearTray();
    EndChildren();
    EndCom();
}
