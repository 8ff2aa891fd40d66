// Lists with the real system beneath: two processes on one list, writers that die, lists that grow and fill.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <set>
#include <string>
#include <vector>

#include <windows.h>

#include "config/setting_values.h"
#include "engine/inifile.h"
#include "engine/results.h"
#include "engine/state.h"
#include "expand/list_blocks.h"
#include "expand/lists.h"
#include "tests/engine/second_process.h"
#include "text/encoding.h"

namespace {

class SharedLists : public testing::Test {
protected:
    void SetUp() override
    {
        IniClear(&aIniFile);
        InitializeLocalGlobalLists();
    }
    void TearDown() override
    {
        if (IsSecondProcess())
            return;
        for (const CString& entry : ListEntries(VariableStore::GlobalAliases))
            if (entry.view().starts_with(u"mvt_"))
                Define(CString(EntryName(entry)) + u"=");
        aIniFile.LocalAliases = 0;
        InitializeLocalGlobalLists();
    }

    static int Define(const CString& text, VariableStore store = VariableStore::GlobalAliases)
    {
        CString entry(text);
        return AddVariableToList(entry, store);
    }
    static std::u16string Alias(std::u16string_view name)
    {
        CString value;
        return GetAlias(name, value) ? std::u16string(value.view()) : u"(none)";
    }

    Signal ready{u"MovaListsReady"};
    Signal stop{u"MovaListsStop"};
};

TEST_F(SharedLists, AreSeenByOtherProcesses)
{
    if (IsSecondProcess()) {
        EXPECT_EQ(Alias(u"mvt_parent"), u"from the parent");
        EXPECT_EQ(Define(u"mvt_child=from the child"), 0);
        return;
    }
    ASSERT_EQ(Define(u"mvt_parent=from the parent"), 0);
    ChildProcess child = StartSecondProcess();
    ASSERT_TRUE(child.Wait([] {}));
    EXPECT_EQ(child.ExitCode(), 0u);
    EXPECT_EQ(Alias(u"mvt_child"), u"from the child");
}

// What a writer's change number `round` leaves of its entry; empty when the change deletes it.
CString ValueOf(int round) { return round % 5 == 4 ? CString() : Format(u"%0*d", 1 + round % 60, round); }

// Four processes change one list while a fifth is ended in the middle of its own changes again and again.
// MOVA_LISTS_ROUNDS in the environment sets the number of changes of each.
TEST_F(SharedLists, WritersLoseNothingWhileOthersAreEnded)
{
    constexpr int writers = 4, slots = 40;
    constexpr std::u16string_view roleName = u"MOVA_LISTS_ROLE", roundsName = u"MOVA_LISTS_ROUNDS";
    CString text;
    const int rounds = ReadEnvironment(roundsName, text) ? std::stoi(ToUtf8(text)) : 100;
    if (IsSecondProcess()) {
        ASSERT_TRUE(ReadEnvironment(roleName, text));
        const bool isVictim = text == u"victim";
        for (int round = 0; isVictim || round < rounds; ++round)
            ASSERT_EQ(Define(Format(u"mvt_%s%d=%s", text, round % slots, ValueOf(round))), 0);
        return;
    }
    const auto start = [this](const CString& role) {
        WriteEnvironment(roleName, role);
        return StartSecondProcess();
    };
    std::vector<ChildProcess> children;
    for (int writer = 0; writer < writers; ++writer)
        children.push_back(start(Format(u"%d_", writer)));
    const auto hasEnded = [](const ChildProcess& child) { return child.HasEnded(); };
    std::mt19937 random(GetTickCount());
    int ended = 0;
    for (; !std::all_of(children.begin(), children.end(), hasEnded); ++ended) {
        ChildProcess victim = start(u"victim");
        Sleep(100 + random() % 100);
        ASSERT_TRUE(victim.Terminate(1));
        ASSERT_TRUE(victim.Wait([] {}));
    }
    EXPECT_GT(ended, 0);
    for (const ChildProcess& child : children)
        EXPECT_EQ(child.ExitCode(), 0u);
    RemoveEnvironment(roleName);
    for (int slot = 0; slot < slots; ++slot) {
        const int last = slot + (rounds - 1 - slot) / slots * slots;
        const CString expected = ValueOf(last).empty() ? CString(u"(none)") : ValueOf(last);
        for (int writer = 0; writer < writers; ++writer)
            EXPECT_EQ(Alias(Format(u"mvt_%d_%d", writer, slot)), std::u16string(expected.view()));
        const std::u16string left = Alias(Format(u"mvt_victim%d", slot));
        EXPECT_EQ(left.find_first_not_of(u"0123456789"), left == u"(none)" ? 0 : std::u16string::npos)
            << slot;
    }
}

// While another process changes an entry in front of it, an entry is never seen missing or half moved.
TEST_F(SharedLists, ReadersSeeWholeEntries)
{
    const std::u16string steady(300, u's');
    if (IsSecondProcess()) {
        ready.Raise();
        while (!stop.IsRaised())
            for (const std::size_t length : {1, 700, 30})
                Define(CString(u"mvt_first=") + std::u16string(length, u'x'));
        return;
    }
    ASSERT_EQ(Define(u"mvt_first=x"), 0);
    ASSERT_EQ(Define(CString(u"mvt_steady=") + steady), 0);
    ChildProcess child = StartSecondProcess();
    ASSERT_TRUE(ready.Await());
    std::set<std::size_t> seen;
    for (int i = 0; i < 40000; ++i) {
        ASSERT_EQ(Alias(u"mvt_steady"), steady);
        const std::u16string first = Alias(u"mvt_first");
        ASSERT_EQ(first, std::u16string(first.size(), u'x'));
        seen.insert(first.size());
    }
    stop.Raise();
    ASSERT_TRUE(child.Wait([] {}));
    EXPECT_GT(seen.size(), 1u) << "the other process did not change anything";
}

TEST_F(SharedLists, LockOfADeadHolderIsTakenOver)
{
    if (IsSecondProcess()) {
        const NamedLock::Guard guard = Lists().lock.Take();
        ready.Raise();
        stop.Await();
        return;
    }
    ChildProcess child = StartSecondProcess();
    ASSERT_TRUE(ready.Await());
    ASSERT_TRUE(child.Terminate(1));
    ASSERT_TRUE(child.Wait([] {}));
    const ULONGLONG start = GetTickCount64();
    EXPECT_EQ(Define(u"mvt_after=x"), 0);
    // A second is the aim; the rest is for a machine that is busy with other tests.
    EXPECT_LT(GetTickCount64() - start, 5000u);
    EXPECT_EQ(Alias(u"mvt_after"), u"x");
}

// The holder dies between getting the semaphore and writing down that it has it.
TEST_F(SharedLists, LockOfANamelessHolderIsTakenOver)
{
    if (IsSecondProcess()) {
        const OwnedHandle semaphore(OpenSemaphoreW(SYNCHRONIZE, FALSE, L"MVListSemaphore"));
        EXPECT_EQ(WaitForSingleObject(semaphore.Get(), 10000), WAIT_OBJECT_0);
        ready.Raise();
        stop.Await();
        return;
    }
    ChildProcess child = StartSecondProcess();
    ASSERT_TRUE(ready.Await());
    ASSERT_TRUE(child.Terminate(1));
    const ULONGLONG start = GetTickCount64();
    EXPECT_EQ(Define(u"mvt_after=x"), 0);
    EXPECT_LT(GetTickCount64() - start, 5000u);
    EXPECT_EQ(Define(u"mvt_again=x"), 0);
}

TEST_F(SharedLists, LockIsReleasedWhenItsHolderThrows)
{
    NamedLock lock(u"MVTestSemaphore");
    try {
        const NamedLock::Guard guard = lock.Take();
        throw 1;
    } catch (int) {
    }
    NamedLock other(u"MVTestSemaphore");
    {
        int polls = 0;
        static int* counter;
        counter = &polls;
        const NamedLock::Guard guard = other.Take([] { ++*counter; });
        EXPECT_EQ(polls, 0);
        // Held by this living process: whoever waits goes on waiting, until it gives up.
        EXPECT_THROW(lock.Take([] {
            if (++*counter == 3)
                throw 2;
        }),
                     int);
    }
    const NamedLock::Guard again = lock.Take();
}

TEST_F(SharedLists, TornListIsRepaired)
{
    if (IsSecondProcess()) {
        const NamedLock::Guard guard = Lists().lock.Take();
        const ListBlock block = QueryListBlock(ListKind::Aliases, ListScope::Global);
        const std::size_t at = FindListEntry(block.View(), u"mvt_b", NameMatch::WholeName);
        ListChange change(block, at, at + 6, 3, u"a longer text than it was");
        change.Step();
        change.Step();
        TerminateProcess(GetCurrentProcess(), 7);
    }
    for (const char16_t* text : {u"mvt_a=first", u"mvt_b=22", u"mvt_c=third", u"mvt_d=fourth"})
        ASSERT_EQ(Define(text), 0);
    ChildProcess child = StartSecondProcess();
    ASSERT_TRUE(child.Wait([] {}));
    ASSERT_EQ(child.ExitCode(), 7u);
    ASSERT_TRUE(IsListChanging(QueryListBlock(ListKind::Aliases, ListScope::Global)));
    EXPECT_EQ(Alias(u"mvt_d"), u"fourth"); // the reader finds the writer dead
    EXPECT_FALSE(IsListChanging(QueryListBlock(ListKind::Aliases, ListScope::Global)));
    EXPECT_EQ(Alias(u"mvt_a"), u"first");
    EXPECT_EQ(Alias(u"mvt_b"), u"22");
    EXPECT_EQ(Alias(u"mvt_c"), u"third");
}

TEST_F(SharedLists, LocalListGrowsAndGlobalListFills)
{
    aIniFile.LocalAliases = 1;
    aIniFile.AliasLocalSize = 4000;
    InitializeLocalGlobalLists();
    const std::u16string text(1500, u'x');
    for (int i = 0; i < 40; ++i)
        ASSERT_EQ(Define(Format(u"mvt_%d=%s%d", i, text, i), VariableStore::LocalAliases), 0);
    EXPECT_EQ(aIniFile.AliasLocalSize, 4000 + 2 * 0x8000); // grown twice by 0x10000 bytes
    bool isLocal = false;
    CString value;
    for (int i = 0; i < 40; ++i) {
        ASSERT_TRUE(GetAlias(Format(u"mvt_%d", i), value, &isLocal));
        EXPECT_TRUE(isLocal && value == Format(u"%s%d", text, i));
    }
    const std::u16string huge(static_cast<std::size_t>(aIniFile.AliasGlobalSize), u'y');
    EXPECT_EQ(Define(CString(u"mvt_huge=") + huge), result::error);
    EXPECT_EQ(Alias(u"mvt_huge"), u"(none)");
    EXPECT_EQ(Define(u"mvt_small=1"), 0);

    const CString saved = SaveLocalList(ListKind::Aliases);
    EXPECT_EQ(Define(u"mvt_3=", VariableStore::LocalAliases), 0);
    EXPECT_EQ(Define(u"mvt_new=1", VariableStore::LocalAliases), 0);
    RestoreLocalList(ListKind::Aliases, saved);
    EXPECT_EQ(Alias(u"mvt_3"), text + u"3");
    EXPECT_EQ(Alias(u"mvt_new"), u"(none)");
}

TEST(Environment, ValuesOfEveryLength)
{
    CString value;
    for (const std::size_t length : {1, 510, 511, 512, 513, 5000, 32000}) {
        const std::u16string text(length, u'v');
        ASSERT_TRUE(WriteEnvironment(u"mvt_variable", text));
        ASSERT_TRUE(ReadEnvironment(u"MVT_Variable", value));
        EXPECT_EQ(value, std::u16string_view(text));
    }
    ASSERT_TRUE(RemoveEnvironment(u"mvt_variable"));
    ASSERT_TRUE(RemoveEnvironment(u"mvt_variable"));
    EXPECT_FALSE(ReadEnvironment(u"mvt_variable", value));
    EXPECT_FALSE(IsInEnvironment(u"mvt_variable"));
    EXPECT_EQ(value.size(), 32000u); // a missing variable leaves the text alone
}

TEST(Environment, NamesOfDrives)
{
    ASSERT_TRUE(WriteEnvironment(u"=Q:", u"Q:\\somewhere"));
    CString value;
    ASSERT_TRUE(ReadEnvironment(u"=Q:", value));
    EXPECT_EQ(value, u"Q:\\somewhere");
    const std::vector<CString> entries = EnvironmentEntries();
    EXPECT_NE(std::find(entries.begin(), entries.end(), u"=Q:=Q:\\somewhere"), entries.end());
    EXPECT_EQ(SetEVariable(u"=Q:=Q:\\elsewhere"), protectedVariable);
    EXPECT_EQ(SetEVariable(u"=nonsense"), result::error);
    ASSERT_TRUE(ReadEnvironment(u"=Q:", value));
    EXPECT_EQ(value, u"Q:\\somewhere");
    EXPECT_TRUE(RemoveEnvironment(u"=Q:"));
}

} // namespace
