#include <gtest/gtest.h>

#include "config/protected_text.h"
#include "lang/errors.h"
#include "tests/unit/config_fake_world.h"

namespace {

struct Accepted {
    std::u16string_view line;
    std::u16string_view name;
    std::u16string_view value; // as the setting tells it afterwards
};

TEST(IniLine, AcceptedValues)
{
    const Accepted cases[] = {
        {u"AliasSize=4000", u"AliasSize", u"4000"},
        {u"aliassize = 1000000", u"AliasSize", u"1000000"},
        {u"AliasSize\t=\t5000\t", u"AliasSize", u"5000"},
        {u"AliasSize 5000", u"AliasSize", u"5000"},
        {u"AliasSize = 5000   ; a comment", u"AliasSize", u"5000"},
        {u"AliasSize=5000;a comment", u"AliasSize", u"5000"},
        {u"AliasSize=005000", u"AliasSize", u"5000"},
        {u"AliasSize=%size%", u"AliasSize", u"5000"},
        {u"CursorIns=-1", u"CursorIns", u"-1"},
        {u"FTPTimeout=-2147483648", u"FTPTimeout", u"-2147483648"},
        {u"Debug=4294967295", u"Debug", u"4294967295"},
        {u"HistDups=last", u"HistDups", u"Last"},
        {u"AmPm=yes", u"AmPm", u"Yes"},
        {u"DecimalChar=,", u"DecimalChar", u","},
        {u"RegularExpressions=posix ; not perl", u"RegularExpressions", u"POSIX"},
        {u"CommandSep=&", u"CommandSep", u"&"},
        {u"EscapeChar=^", u"EscapeChar", u"^"},
        {u"CommandSep=\xA7", u"CommandSep", u"\xA7"},
        {u"EscapeChar=0x60", u"EscapeChar", u"`"},
        {u"ErrorColors=red on black", u"ErrorColors", u"4"},
        {u"ErrorColors=bright white on blue ; easy to read", u"ErrorColors", u"31"},
        {u"ErrorColors=\"bright white on blue\"", u"ErrorColors", u"31"},
        {u"FileCompletion=dirs: zip; exe ;x\tbehind a tab", u"FileCompletion", u"dirs: zip; exe ;x"},
        {u"Editor=\"C:\\my tools\\e.exe\" /x", u"Editor", u"\"C:\\my tools\\e.exe\" /x"},
        {u"HistFile=\"C:\\no such\\hist\"", u"HistFile", u"C:\\no such\\hist"},
        {u"TreePath=\"C:\\my tree\"", u"TreePath", u"C:\\my tree"},
    };
    for (const Accepted& one : cases) {
        Shell shell;
        shell.world.directories = {u"C:\\my tree"};
        EXPECT_EQ(shell.Line(one.line), 0);
        EXPECT_EQ(shell.Value(one.name), one.value);
    }
}

struct Refused {
    std::u16string_view line;
    std::u16string_view name;
    unsigned code;
};

TEST(IniLine, RefusedValuesKeepTheOldOne)
{
    const Refused cases[] = {
        {u"AliasSize=3999", u"AliasSize", errors::iniNumber},
        {u"AliasSize=1000001", u"AliasSize", errors::iniNumber},
        {u"AliasSize=", u"AliasSize", errors::iniNumber},
        {u"AliasSize", u"AliasSize", errors::iniNumber},
        {u"AliasSize=5000x", u"AliasSize", errors::iniNumber},
        {u"AliasSize=0x2000", u"AliasSize", errors::iniNumber},
        {u"AliasSize=5 000", u"AliasSize", errors::iniNumber},
        {u"AliasSize=99999999999999999999", u"AliasSize", errors::iniNumber},
        {u"FTPTimeout=2147483648", u"FTPTimeout", errors::iniNumber},
        {u"CursorIns=-2", u"CursorIns", errors::iniNumber},
        {u"HistMin=-1", u"HistMin", errors::iniNumber},
        {u"Debug=4294967296", u"Debug", errors::iniNumber},
        {u"HistDups=latest", u"HistDups", errors::iniChoice},
        {u"HistDups=", u"HistDups", errors::iniChoice},
        {u"HistDups=2", u"HistDups", errors::iniChoice},
        {u"CommandSep=;", u"CommandSep", errors::iniCharacter},
        {u"CommandSep=", u"CommandSep", errors::iniCharacter},
        {u"CommandSep=\x20AC", u"CommandSep", errors::iniCharacter},
        {u"CommandSep=&&", u"CommandSep", errors::iniCharacter},
        {u"ErrorColors=red on red", u"ErrorColors", errors::iniColor},
        {u"ErrorColors=red", u"ErrorColors", errors::iniColor},
        {u"ErrorColors=", u"ErrorColors", errors::iniColor},
        {u"ErrorColors=red on", u"ErrorColors", errors::iniColor},
        {u"ErrorColors=red on black blue", u"ErrorColors", errors::iniColor},
        {u"TreePath=C:\\nowhere", u"TreePath", errors::iniPath},
    };
    for (const Refused& one : cases) {
        Shell shell;
        shell.world.directories = {u"C:\\tree"};
        shell.Line(u"ErrorColors=green on blue");
        shell.Line(u"TreePath=C:\\tree");
        shell.Line(u"HistDups=First");
        shell.reader.source = {SettingOrigin::Command, 0, 0};
        const std::u16string before = shell.Value(one.name);
        EXPECT_GT(shell.Line(one.line), 0);
        EXPECT_EQ(shell.error.code, one.code);
        EXPECT_EQ(shell.error.name, one.name);
        EXPECT_EQ(shell.Value(one.name), before);
        const auto index = static_cast<std::size_t>(FindDirective(one.name));
        EXPECT_EQ(shell.sources.rows[index].origin, SettingOrigin::Default);
    }
}

TEST(IniLine, UnknownNames)
{
    Shell shell;
    for (const std::u16string_view line : {u"NoSuchThing=1", u"=5", u"AliasSizes=5000", u"Alias"}) {
        EXPECT_GT(shell.Line(line), 0);
        EXPECT_EQ(shell.error.code, errors::iniItem);
    }
    EXPECT_GT(shell.Line(u"NoSuchThing=1"), 0);
    EXPECT_EQ(shell.error.name, u"NoSuchThing");
}

TEST(IniLine, EmptyTextsAreNotSet)
{
    Shell shell;
    shell.world.directories = {u"C:\\tree"};
    const std::u16string_view texts[][2] = {{u"Editor=x", u"Editor="},
                                            {u"TreePath=C:\\tree", u"TreePath="},
                                            {u"MailPassword=x", u"MailPassword = "}};
    for (const auto& one : texts) {
        ASSERT_EQ(shell.Line(one[0]), 0);
        ASSERT_EQ(shell.Line(one[1]), 0);
    }
    EXPECT_EQ(shell.ini.Editor, nullptr);
    EXPECT_EQ(shell.ini.TreePath, nullptr);
    EXPECT_EQ(shell.ini.MailPassword, nullptr);
}

TEST(IniLine, PasswordsAreDecipheredAndNeverTold)
{
    Shell shell;
    const CString enciphered = Encipher(u"s3cret; pass");
    EXPECT_EQ(enciphered.Find(u"s3cret"), CString::npos);
    ASSERT_EQ(shell.Line(u"MailPassword=" + std::u16string(enciphered.view())), 0);
    EXPECT_EQ(std::u16string_view(shell.ini.MailPassword), u"s3cret; pass");
    EXPECT_EQ(shell.Value(u"MailPassword"), u"");
    ASSERT_EQ(shell.Line(u"MailPassword=plain"), 0);
    EXPECT_EQ(std::u16string_view(shell.ini.MailPassword), u"plain");
}

TEST(IniLine, SectionsAndIncludes)
{
    Shell shell;
    const std::pair<std::u16string_view, int> headers[] = {
        {u"[Primary]", -ini_section::primary},   {u"[ secondary ] ; for children", -ini_section::secondary},
        {u"[QUARN", -ini_section::quarn},        {u"[Keys]]", -ini_section::keys},
        {u"[Disabled]", -ini_section::disabled}, {u"[else]", -ini_section::unknown},
        {u"[]", -ini_section::unknown},
    };
    for (const auto& [line, answer] : headers)
        EXPECT_EQ(shell.Line(line), answer);
    EXPECT_EQ(shell.Line(u"Include = \"C:\\my files\\more.ini\""), iniInclude);
    EXPECT_EQ(shell.line, u"C:\\my files\\more.ini");
}

TEST(IniLine, SkippedLines)
{
    Shell shell;
    IniError error;
    CString line(u"AliasSize=5000");
    EXPECT_EQ(IniLine(line, &shell.ini, ini_skip::everything, 0, error, shell.reader), 0);
    line = u"nonsense %size%";
    EXPECT_EQ(IniLine(line, &shell.ini, ini_skip::settings, 0, error, shell.reader), 0);
    line = u"AliasSize=5000";
    EXPECT_EQ(IniLine(line, &shell.ini, ini_skip::settings, 0, error, shell.reader), 0);
    EXPECT_EQ(shell.Value(u"AliasSize"), u"262144");
    line = u"Undo=F2";
    EXPECT_EQ(IniLine(line, &shell.ini, ini_skip::settings, 0, error, shell.reader), 0);
    EXPECT_EQ(shell.keys.Keys(KeyBindings::Find(u"Undo")), u"F2");
}

TEST(IniLine, Reset)
{
    Shell shell;
    IniError error;
    shell.Line(u"HistDups=Last");
    shell.Line(u"Editor=x");
    EXPECT_EQ(IniReset(u"histdups", &shell.ini, error), 0);
    EXPECT_EQ(IniReset(u"EDITOR", &shell.ini, error), 0);
    EXPECT_EQ(shell.Value(u"HistDups"), u"Off");
    EXPECT_EQ(shell.ini.Editor, nullptr);
    EXPECT_EQ(IniReset(u"Histdup", &shell.ini, error), 1);
    EXPECT_EQ(error.code, errors::iniItem);
}

TEST(IniLine, ValidatorsThatNoRowUsesYet)
{
    Shell shell;
    Directive row = aDirectives[static_cast<std::size_t>(FindDirective(u"CommandSep"))];
    row.validator.word = u'A' << 8 | u'Z';
    EXPECT_EQ(ApplyValue(row, u"Q", shell.ini, shell.world), 0u);
    EXPECT_EQ(ApplyValue(row, u"q", shell.ini, shell.world), errors::iniCharacter);
    EXPECT_EQ(shell.Value(u"CommandSep"), u"Q");

    Directive path = aDirectives[static_cast<std::size_t>(FindDirective(u"LogName"))];
    path.validator.word = path_check::directoryPart;
    shell.world.directories = {u"C:\\logs\\"};
    EXPECT_EQ(ApplyValue(path, u"C:\\logs\\a.log", shell.ini, shell.world), 0u);
    EXPECT_EQ(ApplyValue(path, u"b.log", shell.ini, shell.world), 0u);
    EXPECT_EQ(ApplyValue(path, u"C:\\nowhere\\c.log", shell.ini, shell.world), errors::iniPath);
    EXPECT_EQ(shell.Value(u"LogName"), u"b.log");
}

TEST(FormatValue, UnknownAndBroken)
{
    Shell shell;
    EXPECT_EQ(shell.Value(u"Include"), u"?");
    shell.ini.HistDups = 3;
    EXPECT_EQ(shell.Value(u"HistDups"), u"?");
    shell.ini.HistDups = -1;
    EXPECT_EQ(shell.Value(u"HistDups"), u"?");
}

} // namespace
