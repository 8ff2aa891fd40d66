// Settings with the real system beneath: the section that child shells read, files, and a child that
// inherits.
#include <gtest/gtest.h>

#include <windows.h>

#include "config/ini_file.h"
#include "config/setting_values.h"
#include "config/settings_area.h"
#include "core/pseudo_devices.h"
#include "engine/state.h"
#include "platform/shared_section.h"
#include "tests/engine/second_process.h"

namespace {

std::u16string Value(std::u16string_view name)
{
    CString value;
    return GetOptionValue(name, value) == 0 ? std::u16string(value.view()) : u"?";
}

class Settings : public testing::Test {
protected:
    void SetUp() override
    {
        aTexts.executable = ModuleFileName(nullptr);
        Tls().pipeChild = false;
        InitializeIniFile();
    }
    void TearDown() override
    {
        for (const CString& file : files)
            DeleteFileW(file.w());
        FreeSettingStrings(aIniFile);
        IniClear(&aIniFile);
    }

    CString WriteFile(std::string_view bytes)
    {
        const CString name = Format(u"%smova_%u_%u.ini", TemporaryFolder(), unsigned{GetCurrentProcessId()},
                                    unsigned(files.size()));
        const OwnedHandle file(
            CreateFileW(name.w(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
        DWORD written = 0;
        ::WriteFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
        files.push_back(name);
        return name;
    }

    std::vector<CString> files;
};

TEST_F(Settings, AskingForValues)
{
    SetINIDirective(u"//MailPassword=s3cret");
    SetINIDirective(u"//Editor=abcdef");
    EXPECT_EQ(Value(u"MailPassword"), u"");
    CString value;
    EXPECT_EQ(GetOptionValue(u"Include", value), ERROR_INVALID_PARAMETER);
    char16_t buffer[4];
    EXPECT_EQ(QueryOptionValue(u"Editor", buffer, 4), 0);
    EXPECT_EQ(std::u16string_view(buffer), u"abc");
    EXPECT_EQ(QueryOptionValue(u"Editors", buffer, 4), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(std::u16string_view(buffer), u"");
}

TEST_F(Settings, FileOpenForWritingIsNotRead)
{
    const CString name = WriteFile("AliasSize=5000\r\n");
    const OwnedHandle writer(CreateFileW(name.w(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                         OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(writer);
    EXPECT_NE(ProcessINI(name), 0);
    EXPECT_EQ(Value(u"AliasSize"), u"262144");
}

TEST_F(Settings, PublishedForChildren)
{
    SetINIDirective(u"//HistDups=first");
    SetINIDirective(u"//Editor=published");
    const SharedSection area = SharedSection::Open(Format(u"Mova_%x", unsigned{GetCurrentProcessId()}));
    ASSERT_TRUE(area);
    INIFILE seen{};
    CString iniFile;
    ASSERT_TRUE(
        ReadSettingsArea({static_cast<const std::byte*>(area.Data()), settingsAreaBytes}, seen, iniFile));
    EXPECT_EQ(seen.HistDups, choice::histDups::first);
    EXPECT_EQ(std::u16string_view(seen.Editor), u"published");
    FreeSettingStrings(seen);
}

TEST_F(Settings, ChildOfAPipeInherits)
{
    if (IsSecondProcess()) {
        Tls().pipeChild = true;
        InitializeIniFile();
        EXPECT_EQ(Value(u"HistDups"), u"First");
        EXPECT_EQ(Value(u"Editor"), u"handed down");
        EXPECT_EQ(aGlobals.secondary, 1);
        aGlobals.noInheritance = 1;
        InitializeIniFile();
        EXPECT_EQ(Value(u"HistDups"), u"Off");
        EXPECT_EQ(aGlobals.secondary, 0);
        return;
    }
    SetINIDirective(u"//HistDups=first");
    SetSettingString(aDirectives[static_cast<std::size_t>(FindDirective(u"Editor"))], aIniFile,
                     u"handed down");
    SaveIniData();
    ChildProcess child = StartSecondProcess();
    ASSERT_TRUE(child.Wait([] {}));
    EXPECT_EQ(child.ExitCode(), 0u);
}

} // namespace
