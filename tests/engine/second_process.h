// Tests of what processes share: the same test runs once more in a second process, which finds a variable in
// its environment and plays the other part.
#pragma once

#include <string>

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/environment.h"
#include "platform/handle.h"
#include "platform/module.h"
#include "platform/process.h"
#include "text/format.h"

// Set in the environment of the second process: the id of the first one.
constexpr std::u16string_view secondProcessMark = u"MOVA_SECOND_PROCESS";

inline bool IsSecondProcess() { return IsInEnvironment(secondProcessMark); }

inline ChildProcess StartSecondProcess()
{
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    const std::string name = std::string(test->test_suite_name()) + "." + test->name();
    ProcessStart start;
    start.program = ModuleFileName(nullptr);
    start.commandLine = Format(u"\"%s\" --gtest_filter=%s", start.program,
                               std::u16string_view(std::u16string(name.begin(), name.end())));
    WriteEnvironment(secondProcessMark, Format(u"%u", unsigned{GetCurrentProcessId()}));
    ChildProcess child;
    EXPECT_EQ(child.Start(start), 0u);
    RemoveEnvironment(secondProcessMark);
    return child;
}

// Raised by one side, awaited by the other. The first process's id keeps test runs apart.
class Signal {
public:
    explicit Signal(std::u16string_view name)
    {
        CString serial;
        if (!ReadEnvironment(secondProcessMark, serial))
            serial = Format(u"%u", unsigned{GetCurrentProcessId()});
        event = OwnedHandle(CreateEventW(nullptr, TRUE, FALSE, (CString(name) + serial).w()));
    }
    void Raise() { SetEvent(event.Get()); }
    void Lower() { ResetEvent(event.Get()); }
    bool Await() { return WaitForSingleObject(event.Get(), 20000) == WAIT_OBJECT_0; }
    bool IsRaised() { return WaitForSingleObject(event.Get(), 0) == WAIT_OBJECT_0; }

private:
    OwnedHandle event;
};
