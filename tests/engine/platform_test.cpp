#include <thread>

#include <gtest/gtest.h>
#include <objbase.h>
#include <windows.h>

#include "core/pseudo_devices.h"
#include "platform/com.h"
#include "platform/file_facts.h"
#include "platform/handle.h"
#include "platform/module.h"
#include "platform/process.h"
#include "platform/process_line.h"
#include "platform/registry.h"
#include "text/path_names.h"

namespace {

CString Helper(std::u16string_view name)
{
    return JoinPath(DirectoryPart(ModuleFileName(nullptr)), JoinPath(u"helpers", name));
}

unsigned StartHelper(ChildProcess& child, std::u16string_view name, std::u16string_view arguments,
                     ProcessStart start = {})
{
    start.program = Helper(name);
    start.commandLine = ProcessLine(start.program, arguments);
    return child.Start(start);
}

CString TemporaryName(std::u16string_view name) { return JoinPath(TemporaryFolder(), name); }

TEST(ChildProcess, ExitCodesHave32Bits)
{
    ChildProcess child;
    ASSERT_EQ(StartHelper(child, u"linger.exe", u"0 0xFEDCBA98"), 0U);
    EXPECT_NE(child.Id(), 0U);
    ASSERT_TRUE(child.Wait(nullptr));
    EXPECT_EQ(child.ExitCode(), 0xFEDCBA98U);
}

TEST(ChildProcess, PollMayGiveUpWaiting)
{
    ChildProcess child;
    ASSERT_EQ(StartHelper(child, u"linger.exe", u"60000"), 0U);
    EXPECT_THROW(child.Wait([] { throw 1; }), int);
    EXPECT_FALSE(child.HasEnded());
    EXPECT_FALSE(child.ExitCode());
    EXPECT_TRUE(child.Terminate(7));
    EXPECT_TRUE(child.Wait(nullptr));
    EXPECT_EQ(child.ExitCode(), 7U);
}

TEST(ChildProcess, InheritsNoHandleButTheStandardOnes)
{
    const CString name = TemporaryName(u"movacore-inherit.tmp");
    SECURITY_ATTRIBUTES inheritable = {sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    OwnedHandle ours(
        CreateFileW(name.w(), GENERIC_WRITE, 0, &inheritable, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    ASSERT_TRUE(ours);
    ChildProcess child;
    ASSERT_EQ(StartHelper(child, u"linger.exe", u"60000"), 0U);
    ours.Reset();
    // While any handle to it is open, a file that shares nothing cannot be opened again.
    const OwnedHandle again(CreateFileW(name.w(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                        FILE_ATTRIBUTE_NORMAL | FILE_FLAG_DELETE_ON_CLOSE, nullptr));
    EXPECT_TRUE(again) << GetLastError();
    child.Terminate(0);
}

TEST(ChildProcess, StartsWithAffinityAndEnvironment)
{
    ProcessStart start;
    start.affinity = 1;
    ChildProcess child;
    ASSERT_EQ(StartHelper(child, u"linger.exe", u"0 3", start), 0U);
    ASSERT_TRUE(child.Wait(nullptr));
    EXPECT_EQ(child.ExitCode(), 3U);
}

TEST(ChildProcess, ReportsWhyItDidNotStart)
{
    ChildProcess child;
    ProcessStart start;
    start.program = u"C:\\no such folder\\p.exe";
    EXPECT_EQ(child.Start(start), static_cast<unsigned>(ERROR_PATH_NOT_FOUND));
    EXPECT_FALSE(child);
}

// A folder below the temporary one whose full name is longer than 260 units, and a file in it.
class LongName : public testing::Test {
protected:
    void SetUp() override
    {
        for (const char16_t* part : {u"movacore-long-1", u"movacore-long-2"}) {
            const CString parent = folders.empty() ? TemporaryName(u"") : folders.back();
            folders.push_back(JoinPath(parent, CString(part) + CString(140, u'x')));
            ASSERT_TRUE(CreateDirectoryW(SystemPath(folders.back()).w(), nullptr)) << GetLastError();
        }
        file = JoinPath(folders.back(), u"File.txt");
        const OwnedHandle created(CreateFileW(SystemPath(file).w(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                              FILE_ATTRIBUTE_NORMAL, nullptr));
        ASSERT_TRUE(created);
        DWORD written = 0;
        WriteFile(created.Get(), "12345", 5, &written, nullptr);
    }
    void TearDown() override
    {
        DeleteFileW(SystemPath(file).w());
        for (; !folders.empty(); folders.pop_back())
            RemoveDirectoryW(SystemPath(folders.back()).w());
    }

    std::vector<CString> folders;
    CString file;
};

TEST_F(LongName, FileFactsTakeIt)
{
    ASSERT_GT(file.size(), 260U);
    EXPECT_TRUE(QueryIsFile(file));
    EXPECT_FALSE(QueryIsDirectory(file));
    EXPECT_TRUE(QueryIsDirectory(folders.back()));
    const auto facts = ReadFileFacts(file);
    ASSERT_TRUE(facts);
    EXPECT_EQ(facts->size, 5U);
    EXPECT_FALSE(ReadFileFacts(file + u".not"));
    EXPECT_EQ(LongPathName(file), LongPathName(folders.back()) + u"\\File.txt");
    EXPECT_EQ(FullPathName(JoinPath(folders.back(), u".\\y\\..\\File.txt")), FullPathName(file));
}

TEST(FileFacts, DevicesAreNoFiles)
{
    EXPECT_FALSE(QueryIsFile(u"NUL"));
    EXPECT_FALSE(QueryIsFile(u""));
    EXPECT_FALSE(QueryIsFile(u"no:such|name"));
    EXPECT_TRUE(QueryIsDirectory(CurrentDirectory()));
}

class Registry : public testing::Test {
protected:
    static constexpr const wchar_t* path = L"Software\\Movacore engine tests";
    static constexpr std::u16string_view pathText = u"Software\\Movacore engine tests";

    void Set(const wchar_t* name, DWORD type, const void* data, DWORD bytes)
    {
        ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, path, name, type, data, bytes), ERROR_SUCCESS);
    }
    void SetText(const wchar_t* name, DWORD type, const CString& text)
    {
        Set(name, type, text.w(), static_cast<DWORD>((text.size() + 1) * sizeof(char16_t)));
    }
    void TearDown() override { RegDeleteTreeW(HKEY_CURRENT_USER, path); }
};

TEST_F(Registry, ReadsTextsAndNumbers)
{
    const DWORD number = 42;
    const CString longText(5000, u'y');
    SetText(nullptr, REG_SZ, u"default");
    SetText(L"expand", REG_EXPAND_SZ, u"<%movacore_registry_test%>");
    SetText(L"long", REG_SZ, longText);
    Set(L"number", REG_DWORD, &number, sizeof number);
    SetEnvironmentVariableW(L"movacore_registry_test", L"value");

    const RegistryKey key(RegistryRoot::CurrentUser, pathText);
    ASSERT_TRUE(key);
    EXPECT_EQ(key.Text({}), CString(u"default"));
    EXPECT_EQ(key.Text(u"expand"), CString(u"<value>"));
    EXPECT_EQ(key.Text(u"long"), longText);
    EXPECT_EQ(key.Number(u"number"), 42U);
    EXPECT_FALSE(key.Text(u"number"));
    EXPECT_FALSE(key.Number(u"long"));
    EXPECT_FALSE(key.Text(u"missing"));
    EXPECT_FALSE(RegistryKey(RegistryRoot::CurrentUser, u"Software\\Movacore no such key"));
}

TEST_F(Registry, ListsSubkeys)
{
    for (const wchar_t* name : {L"b", L"a"}) {
        HKEY made = nullptr;
        const std::wstring subkey = std::wstring(path) + L"\\" + name;
        ASSERT_EQ(RegCreateKeyW(HKEY_CURRENT_USER, subkey.c_str(), &made), ERROR_SUCCESS);
        RegCloseKey(made);
    }
    EXPECT_EQ(RegistryKey(RegistryRoot::CurrentUser, pathText).SubkeyNames().size(), 2U);
}

// A thread of its own: nobody else has made it an apartment.
TEST(Com, IsAnApartmentUntilItIsGivenUp)
{
    std::thread([] {
        APTTYPE type = {};
        APTTYPEQUALIFIER qualifier = {};
        EXPECT_TRUE(StartCom());
        EXPECT_TRUE(StartCom());
        EXPECT_EQ(CoGetApartmentType(&type, &qualifier), S_OK);
        EXPECT_EQ(type, APTTYPE_MAINSTA);
        EndCom();
        EXPECT_EQ(CoGetApartmentType(&type, &qualifier), CO_E_NOTINITIALIZED);
    }).join();
}

} // namespace
