#include "engine/break.h"

#include <atomic>
#include <thread>

#include <gtest/gtest.h>
#include <windows.h>

#include "config/ini_file.h"
#include "core/pseudo_devices.h"
#include "engine/command_entry.h"
#include "engine/state.h"
#include "lifecycle/breaks.h"
#include "platform/clock.h"
#include "platform/environment.h"
#include "platform/file_facts.h"
#include "platform/module.h"
#include "platform/process.h"
#include "platform/whole_file.h"
#include "text/encoding.h"
#include "text/format.h"

namespace {

class Breaks : public testing::Test {
protected:
    Breaks() { TakeBreaksHere(); }
    ~Breaks() override
    {
        EnableSignals();
        TakeBreak(break_event::close);
        ClearBreak();
        Tls().protectedOperation = false;
        Tls().blocks = {};
        aGlobals.exitRequested = 0;
    }

    static bool Throws()
    {
        try {
            ThrowIfBroken();
        } catch (const Break& broken) {
            EXPECT_EQ(broken.code, 3);
            return true;
        }
        return false;
    }
};

TEST_F(Breaks, ControlCIsTakenOnce)
{
    EXPECT_FALSE(Throws());
    Tls().blocks.iffNesting = 2;
    MarkBreak();
    EXPECT_TRUE(QueryBreak());
    EXPECT_TRUE(Throws());
    EXPECT_FALSE(QueryBreak());
    EXPECT_TRUE(Tls().breakHappened);
    EXPECT_EQ(Tls().blocks.iffNesting, 0);
    EXPECT_EQ(aGlobals.exitRequested, 0);
    EXPECT_FALSE(Throws());
    ClearBreak();
    EXPECT_FALSE(Tls().breakHappened);
}

TEST_F(Breaks, HeldSignalsForgetABreakThatIsLookedAt)
{
    HoldSignals();
    MarkBreak();
    EXPECT_FALSE(Throws());
    EnableSignals();
    EXPECT_FALSE(Throws());

    // One that nobody looks at in the meantime still counts.
    HoldSignals();
    MarkBreak();
    EnableSignals();
    EXPECT_TRUE(Throws());
}

TEST_F(Breaks, ProtectedOperationDelaysControlBreakOnly)
{
    Tls().protectedOperation = true;
    MarkBreak(break_event::controlBreak);
    EXPECT_FALSE(Throws());
    EXPECT_TRUE(Tls().breakPending);
    Tls().protectedOperation = false;
    EXPECT_TRUE(Throws());
    EXPECT_FALSE(Tls().breakPending);

    Tls().protectedOperation = true;
    MarkBreak(break_event::controlC);
    EXPECT_TRUE(Throws());
}

TEST_F(Breaks, EndOfTheConsoleIsNeitherHeldNorForgotten)
{
    HoldSignals();
    MarkBreak(break_event::close);
    MarkBreak(break_event::controlC);
    ClearBreak();
    EXPECT_TRUE(QueryBreak());
    EXPECT_TRUE(Throws());
    EXPECT_EQ(aGlobals.exitRequested, 1);
    EXPECT_FALSE(QueryBreak());
}

TEST_F(Breaks, OnlyTheEndOfTheConsoleCutsAWaitForAChild)
{
    MarkBreak();
    EXPECT_NO_THROW(ThrowIfShellEnds());
    EXPECT_TRUE(QueryBreak());
    MarkBreak(break_event::shutDown);
    EXPECT_THROW(ThrowIfShellEnds(), Break);
}

TEST_F(Breaks, OtherThreadsAreLeftAlone)
{
    MarkBreak();
    bool thrown = true;
    std::thread([&] { thrown = Throws(); }).join();
    EXPECT_FALSE(thrown);
    EXPECT_TRUE(Throws());
}

TEST_F(Breaks, EventWakesAWaitThatOnlyQueuedCallsCanEnd)
{
    std::thread events([] {
        Sleep(30);
        EXPECT_EQ(ConsoleBreakHandler(CTRL_C_EVENT), 1);
    });
    const std::uint64_t start = Ticks();
    EXPECT_EQ(SleepEx(20000, TRUE), static_cast<DWORD>(WAIT_IO_COMPLETION));
    EXPECT_LT(Ticks() - start, 10000u);
    events.join();
    EXPECT_TRUE(Throws());
}

TEST_F(Breaks, EndOfTheConsoleWaitsForTheMainThreadToShutDown)
{
    std::atomic<bool> installed = false;
    std::atomic<bool> shutDown = false;
    std::thread main([&] {
        InstallBreakHandler();
        installed = true;
        SleepEx(20000, TRUE);
        EXPECT_TRUE(Throws());
        Sleep(200);
        shutDown = true;
    });
    while (!installed)
        Sleep(1);
    EXPECT_EQ(ConsoleBreakHandler(CTRL_CLOSE_EVENT), 0);
    EXPECT_TRUE(shutDown);
    EXPECT_EQ(aGlobals.exitRequested, 1);
    main.join();
}

TEST_F(Breaks, ChildrenOfTheCommandAreEnded)
{
    CString helper = ModuleFileName(nullptr);
    helper.Truncate(helper.view().find_last_of(u'\\') + 1).Append(u"helpers\\linger.exe");
    ProcessStart start;
    start.program = helper;
    start.commandLine = u"linger 60000";
    ChildProcess child;
    ASSERT_EQ(child.Start(start), 0u);
    Tls().runningProcesses[1] = child.Get();
    MarkBreak();
    EXPECT_TRUE(Throws());
    EXPECT_EQ(Tls().runningProcesses[1], nullptr);
    EXPECT_EQ(WaitForSingleObject(child.Get(), 10000), static_cast<DWORD>(WAIT_OBJECT_0));
    EXPECT_EQ(child.ExitCode(), 3u);
}

// The inner file's command jumps, so that its last lines still run; its caller's then has its turn.
TEST_F(Breaks, EndOfTheConsoleReachesTheOnCommandsOfAllBatchFiles)
{
    InitializeIniFile();
    const CString folder = TemporaryFolder() + u"\\";
    const CString inner = folder + u"on_close_inner.btm";
    const CString outer = folder + u"on_close_outer.btm";
    ASSERT_TRUE(ReplaceWholeFile(inner,
                                 "@echo off\r\non close goto end\r\ndelay 20\r\nset seen=no\r\n:end\r\n"
                                 "set seen=%seen inner\r\n"));
    ASSERT_TRUE(ReplaceWholeFile(
        outer, ToUtf8(Format(u"@echo off\r\non close set seen=%%seen outer\r\ncall \"%s\"\r\n"
                             u"set seen=no\r\n",
                             inner))));
    RemoveEnvironment(u"seen");
    std::thread events([] {
        Sleep(300);
        MarkBreak(break_event::close);
        WakeForBreak();
    });
    EXPECT_THROW(Command_S(Format(u"call \"%s\"", outer), 0), Break);
    events.join();
    CString seen;
    ReadEnvironment(u"seen", seen);
    EXPECT_EQ(ToUtf8(seen.Trim()), "inner outer");
    EXPECT_EQ(Tls().batchIndex, -1);
    DeleteFileW(inner.w());
    DeleteFileW(outer.w());
}

} // namespace
