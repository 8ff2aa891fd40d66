#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <string>

#include "config/setting_values.h"
#include "config/settings_area.h"
#include "tests/unit/config_fake_world.h"

namespace {

using Area = std::array<std::byte, settingsAreaBytes>;

TEST(SettingsArea, RoundTrip)
{
    Shell parent;
    parent.world.directories = {u"C:\\tree"};
    for (const std::u16string_view line :
         {u"HistDups=Last", u"CommandSep=~", u"Editor=my editor", u"TreePath=C:\\tree",
          u"MailPassword=s3cret", u"DropboxPassword=last text", u"ListColors=red on blue"})
        ASSERT_EQ(parent.Line(line), 0);
    Area area{};
    WriteSettingsArea(parent.ini, u"C:\\x\\MOVA.INI", area);

    Shell child;
    CString iniFile;
    ASSERT_TRUE(ReadSettingsArea(area, child.ini, iniFile));
    for (const Directive& directive : aDirectives) {
        if (directive.IsText()) {
            EXPECT_EQ(SettingString(directive, child.ini), SettingString(directive, parent.ini));
        } else {
            EXPECT_EQ(child.Value(directive.name), parent.Value(directive.name));
        }
    }
    EXPECT_EQ(child.ini.ColorDir, nullptr);
    EXPECT_EQ(iniFile, u"C:\\x\\MOVA.INI");
    EXPECT_NE(child.ini.Editor, parent.ini.Editor);
}

TEST(SettingsArea, TextsThatDoNotFitAreLeftOut)
{
    Shell parent;
    const std::u16string huge(settingsAreaBytes, u'x');
    for (const Directive& directive : aDirectives)
        if (directive.Type() == DirectiveType::String)
            SetSettingString(directive, parent.ini, huge);
    SetSettingString(aDirectives[static_cast<std::size_t>(FindDirective(u"LogName"))], parent.ini, u"a.log");
    SetSettingString(aDirectives[static_cast<std::size_t>(FindDirective(u"DropboxPassword"))], parent.ini,
                     std::u16string((settingsAreaBytes - sizeof(INIFILE)) / 2 - 5 - 52, u'y'));
    Area area{};
    WriteSettingsArea(parent.ini, u"C:\\x\\MOVA.INI", area);
    Shell child;
    CString iniFile;
    ASSERT_TRUE(ReadSettingsArea(area, child.ini, iniFile));
    EXPECT_EQ(child.ini.Editor, nullptr);
    EXPECT_EQ(std::u16string_view(child.ini.LogName), u"a.log");
    ASSERT_NE(child.ini.DropboxPassword, nullptr);
    EXPECT_EQ(std::u16string_view(child.ini.DropboxPassword),
              std::u16string_view(parent.ini.DropboxPassword)); // fills the area to its last unit
    EXPECT_EQ(iniFile, u"");
}

TEST(SettingsArea, ForeignContents)
{
    Shell parent;
    Area area{};
    Shell child;
    CString iniFile;
    EXPECT_FALSE(ReadSettingsArea(area, child.ini, iniFile));
    WriteSettingsArea(parent.ini, u"C:\\x\\MOVA.INI", area);
    EXPECT_FALSE(ReadSettingsArea(std::span(area).first(sizeof(INIFILE) - 1), child.ini, iniFile));
    const std::uint32_t otherFormat = 10;
    std::memcpy(area.data() + offsetof(INIFILE, format), &otherFormat, sizeof otherFormat);
    EXPECT_FALSE(ReadSettingsArea(area, child.ini, iniFile));
    EXPECT_EQ(child.Value(u"HistDups"), u"Off");

    WriteSettingsArea(parent.ini, u"C:\\x\\MOVA.INI", area);
    std::memset(area.data() + sizeof(INIFILE), 0x41, area.size() - sizeof(INIFILE)); // no end anywhere
    ASSERT_TRUE(ReadSettingsArea(area, child.ini, iniFile));
    EXPECT_EQ(std::u16string_view(child.ini.ColorDir).size(), (area.size() - sizeof(INIFILE)) / 2);
    EXPECT_EQ(child.ini.DescriptionName, nullptr);
}

} // namespace
