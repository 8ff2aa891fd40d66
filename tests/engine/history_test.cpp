// The histories with the real system beneath: what is kept, one history of two processes, writers that die.
#include "console/history.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cwchar>
#include <string>
#include <vector>

#include <windows.h>

#include "config/setting_values.h"
#include "engine/break.h"
#include "engine/console_entry.h"
#include "engine/inifile.h"
#include "engine/state.h"
#include "expand/list_blocks.h"
#include "tests/engine/second_process.h"

namespace {

constexpr std::u16string_view childNumber = u"MOVA_HISTORY_CHILD_NUMBER";

void Use(ListScope scope)
{
    IniClear(&aIniFile);
    aIniFile.LocalHistory = scope == ListScope::Local;
    aIniFile.LocalDirHistory = scope == ListScope::Local;
    InitializeLocalGlobalLists();
    for (const ListKind kind : {ListKind::History, ListKind::DirHistory})
        ClearHistory({kind, scope});
}

void Add(const char16_t* text, bool force = false)
{
    CString line(text);
    AddToHistory(line, force);
}

// The lines, each followed by '|'.
std::u16string Text(ListKind kind = ListKind::History)
{
    std::u16string all;
    for (const CString& line : HistoryLines({kind, {}}))
        all.append(line.view()).append(u"|");
    return all;
}

class LocalHistory : public testing::Test {
protected:
    void SetUp() override { Use(ListScope::Local); }
    void TearDown() override { RemoveEnvironment(u"HistoryExclude"); }
};

TEST_F(LocalHistory, LeavesMarkedLinesOutOnce)
{
    Tls().lineNotSaved = true;
    Add(u"first");
    Add(u"second");
    Tls().lineNotSaved = true;
    Add(u"third", true);
    Add(u"fourth");
    EXPECT_EQ(Text(), u"second|third|fourth|");
}

TEST_F(LocalHistory, ForcedLinesIgnoreEqualOnes)
{
    aIniFile.HistDups = choice::histDups::first;
    Add(u"dir");
    Add(u"DIR");
    EXPECT_EQ(Text(), u"dir|");
    Add(u"DIR", true);
    EXPECT_EQ(Text(), u"dir|DIR|");
}

TEST_F(LocalHistory, IsWalkedBothWays)
{
    EXPECT_EQ(PreviousHistoryEntry(nullptr, false), nullptr);
    Add(u"one");
    Add(u"two");
    AddHistoryLines({ListKind::DirHistory, {}}, std::vector<CString>{u"C:\\a", u"C:\\b"});
    const char16_t* const two = PreviousHistoryEntry(nullptr, false);
    const char16_t* const one = PreviousHistoryEntry(two, false);
    EXPECT_STREQ(reinterpret_cast<const wchar_t*>(two), L"two");
    EXPECT_STREQ(reinterpret_cast<const wchar_t*>(one), L"one");
    EXPECT_EQ(one, HistoryStart());
    EXPECT_EQ(PreviousHistoryEntry(one, false), two);
    EXPECT_EQ(NextHistoryEntry(two, false), one);
    aIniFile.HistWrap = 0;
    EXPECT_EQ(PreviousHistoryEntry(one, false), one);
    EXPECT_EQ(NextHistoryEntry(two, false), two);
    aIniFile.HistWrap = 1; // counts for the command history alone
    EXPECT_EQ(PreviousHistoryEntry(DirHistoryStart(), true), DirHistoryStart());
    const char16_t own[] = u"x\0yy\0";
    EXPECT_EQ(PreviousHistoryEntry(nullptr, false, own), own + 2);
    EXPECT_EQ(NextHistoryEntry(own, false, own), own + 2);
}

TEST_F(LocalHistory, EntriesAreDeleted)
{
    Add(u"one");
    Add(u"two");
    AddHistoryLines({ListKind::DirHistory, {}}, std::vector<CString>{u"C:\\a"});
    EXPECT_FALSE(DeleteFromHistory(HistoryStart() + 1));
    EXPECT_TRUE(DeleteFromHistory(HistoryStart()));
    EXPECT_TRUE(DeleteFromHistory(DirHistoryStart()));
    EXPECT_FALSE(DeleteFromHistory(u"elsewhere"));
    EXPECT_EQ(Text(), u"two|");
    EXPECT_EQ(Text(ListKind::DirHistory), u"");
}

TEST_F(LocalHistory, SignalsAreHeldNoLongerThanBefore)
{
    Add(u"one");
    EXPECT_FALSE(Tls().signalsHeld);
    HoldSignals();
    Add(u"two");
    EXPECT_TRUE(Tls().signalsHeld);
    EnableSignals();
}

class SharedHistory : public testing::Test {
protected:
    void SetUp() override
    {
        if (IsSecondProcess()) {
            IniClear(&aIniFile);
            InitializeLocalGlobalLists();
        } else {
            Use(ListScope::Global);
        }
    }

    Signal ready{u"MovaHistoryReady"};
};

// Twenty shells add to one history; every fifth of them is killed while it holds the lock.
TEST_F(SharedHistory, ManyProcessesLoseNothingThoughSomeAreKilled)
{
    constexpr int children = 20;
    constexpr int rounds = 25;
    const auto dies = [](int child) { return child % 5 == 0; };
    CString number;
    if (IsSecondProcess()) {
        ReadEnvironment(childNumber, number);
        ULONGLONG longest = 0;
        for (int i = 0; i < rounds; ++i) {
            const ULONGLONG start = GetTickCount64();
            Add(Format(u"%s line %d", number, i).c_str());
            longest = std::max(longest, GetTickCount64() - start);
        }
        EXPECT_LT(longest, 1000u);
        if (dies(std::stoi(std::string(number.view().begin(), number.view().end())))) {
            const NamedLock::Guard guard = Lists().historyLock.Take();
            ready.Raise();
            Sleep(20000);
        }
        return;
    }
    std::vector<ChildProcess> processes;
    for (int i = 0; i < children; ++i) {
        WriteEnvironment(childNumber, Format(u"%d", i));
        processes.push_back(StartSecondProcess());
        if (!dies(i))
            continue;
        ASSERT_TRUE(ready.Await());
        ready.Lower();
        ASSERT_TRUE(processes.back().Terminate(1));
    }
    RemoveEnvironment(childNumber);
    for (int i = 0; i < children; ++i) {
        ChildProcess& process = processes[static_cast<std::size_t>(i)];
        ASSERT_TRUE(process.Wait([] {}));
        EXPECT_EQ(process.ExitCode(), dies(i) ? 1u : 0u) << i;
    }
    int last[children];
    std::fill_n(last, children, -1);
    for (const CString& line : HistoryLines({})) {
        int child = -1;
        int round = -1;
        ASSERT_EQ(swscanf(line.w(), L"%d line %d", &child, &round), 2);
        ASSERT_TRUE(child >= 0 && child < children);
        EXPECT_EQ(round, last[child] + 1);
        last[child] = round;
    }
    for (const int round : last)
        EXPECT_EQ(round, rounds - 1);
}

TEST_F(SharedHistory, OutlivesAWriterThatDiesWithTheLock)
{
    if (IsSecondProcess()) {
        HistoryLines({}); // makes the lock
        const NamedLock::Guard guard = Lists().historyLock.Take();
        const ListBlock block = QueryListBlock(ListKind::History, ListScope::Global);
        const std::size_t end = EndOfList(block.View());
        ListChange change(block, end, end, 0, std::u16string_view(u"torn\0", 5));
        change.Step();
        change.Step();
        std::fill_n(block.units + end, 5, u'x'); // the line without its end
        ready.Raise();
        Sleep(20000);
        return;
    }
    Add(u"one");
    ChildProcess child = StartSecondProcess();
    ASSERT_TRUE(ready.Await());
    ASSERT_TRUE(child.Terminate(1));
    ASSERT_TRUE(child.Wait([] {}));
    const ULONGLONG start = GetTickCount64();
    Add(u"two");
    EXPECT_LT(GetTickCount64() - start, 1000u);
    EXPECT_EQ(Text(), u"one|two|");
}

} // namespace
