#include <gtest/gtest.h>

#include "lang/errors.h"
#include "tests/unit/config_fake_world.h"

namespace {

constexpr std::u16string_view mainFile = u"C:\\shell\\MOVA.INI";

std::string Utf16(std::u16string_view text, bool mark)
{
    std::string bytes = mark ? "\xFF\xFE" : "";
    for (const char16_t unit : text) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
    }
    return bytes;
}

TEST(IniParse, Sections)
{
    const std::string text =
        "AliasSize=5001\n[Primary]\nHistMin=1\n[Secondary]\nHistMin=2\n[other]\nHistMin=3\n"
        "NoSuchItem\n[Disabled]\nCOPY=1\nMove\n[Keys]\nUndo=F2\n[QUARN]\nFuzzyCD=1\n";
    Shell primary;
    primary.world.files[u"C:\\shell\\MOVA.INI"] = text;
    primary.Parse(mainFile, ini_section::secondary);
    EXPECT_EQ(primary.Value(u"HistMin"), u"1");
    EXPECT_EQ(primary.Value(u"FuzzyCD"), u"1");
    EXPECT_EQ(primary.ini.sectionsSeen, 0xBF0u);
    ASSERT_EQ(primary.reader.disabled.size(), 2u);
    EXPECT_EQ(primary.reader.disabled[0], u"COPY");
    EXPECT_EQ(primary.reader.disabled[1], u"Move");
    EXPECT_TRUE(primary.world.reports.empty());

    Shell secondary;
    secondary.world.files[u"C:\\shell\\MOVA.INI"] = text;
    secondary.Parse(mainFile, ini_section::primary);
    EXPECT_EQ(secondary.Value(u"HistMin"), u"2");
    EXPECT_EQ(secondary.Value(u"AliasSize"), u"5001");

    Shell inheriting;
    inheriting.world.files[u"C:\\shell\\MOVA.INI"] = text;
    inheriting.Parse(mainFile,
                     ini_section::none | ini_section::primary | ini_section::quarn | ini_section::keys);
    EXPECT_EQ(inheriting.Value(u"HistMin"), u"2");
    EXPECT_EQ(inheriting.Value(u"AliasSize"), u"262144");
    EXPECT_EQ(inheriting.Value(u"FuzzyCD"), u"0");
    EXPECT_EQ(inheriting.keys.Keys(KeyBindings::Find(u"Undo")), u"F2");
    EXPECT_EQ(inheriting.reader.disabled.size(), 2u);
}

TEST(IniParse, Includes)
{
    Shell shell;
    shell.world.files = {
        {u"C:\\shell\\MOVA.INI", "[Primary]\nInclude=more\\one.ini\nHistMin=1\nInclude=gone.ini\n"},
        {u"C:\\shell\\more\\one.ini", "FuzzyCD=1\n[Secondary]\nHistMin=7\nInclude=x\n[Keys]\n"
                                      "Include=\"C:\\two.ini\"\nBeepFreq=100\n"},
        {u"C:\\two.ini", "EvalMax=3\nInclude=three.ini\nEvalMin=1\n"},
        {u"C:\\three.ini", "EvalMax=9\n"},
    };
    EXPECT_EQ(shell.Parse(mainFile), 0);
    EXPECT_EQ(shell.Value(u"FuzzyCD"), u"1");
    EXPECT_EQ(shell.Value(u"BeepFreq"), u"100");
    EXPECT_EQ(shell.Value(u"EvalMax"), u"3");
    EXPECT_EQ(shell.Value(u"EvalMin"), u"1");
    EXPECT_EQ(shell.Value(u"HistMin"), u"1"); // the included file's section ended with it
    ASSERT_EQ(shell.world.reports.size(), 2u);
    EXPECT_EQ(shell.world.reports[0].error.code, errors::iniIncludeDepth);
    EXPECT_EQ(shell.world.reports[0].place.file, u"C:\\two.ini");
    EXPECT_EQ(shell.world.reports[0].place.line, 2u);
    EXPECT_EQ(shell.world.reports[1].error.code, errors::iniInclude);
    EXPECT_EQ(shell.world.reports[1].error.name, u"gone.ini");
    EXPECT_EQ(shell.world.reports[1].place.line, 4u);
}

TEST(IniParse, IncludeLoopsEnd)
{
    Shell shell;
    std::string text;
    for (int i = 0; i < 100; ++i)
        text += "Include=MOVA.INI\n";
    shell.world.files[u"C:\\shell\\MOVA.INI"] = text + "HistMin=4\n";
    EXPECT_EQ(shell.Parse(mainFile), 0);
    EXPECT_EQ(shell.Value(u"HistMin"), u"4");
    EXPECT_EQ(shell.world.filesRead, mostIniFiles);
    EXPECT_EQ(shell.reader.depth, 0);
}

TEST(IniParse, MissingFile)
{
    Shell shell;
    EXPECT_NE(shell.Parse(mainFile), 0);
    EXPECT_TRUE(shell.world.reports.empty());
}

TEST(IniParse, Encodings)
{
    const std::u16string_view text = u"Editor=\x0416\xE9\r\nHistMin=6";
    const std::string files[] = {Utf16(text, true), Utf16(text, false), ToUtf8(text),
                                 "\xEF\xBB\xBF" + ToUtf8(text)};
    for (const std::string& bytes : files) {
        Shell shell;
        shell.world.files[u"C:\\shell\\MOVA.INI"] = bytes;
        shell.Parse(mainFile);
        EXPECT_EQ(shell.Value(u"Editor"), u"\x0416\xE9");
        EXPECT_EQ(shell.Value(u"HistMin"), u"6");
    }
    Shell ansi;
    ansi.world.files[u"C:\\shell\\MOVA.INI"] = "Editor=caf\xE9";
    ansi.Parse(mainFile);
    EXPECT_EQ(ansi.Value(u"Editor"), u"caf\xE9");
}

TEST(IniParse, VeryLongLine)
{
    Shell shell;
    shell.world.files[u"C:\\shell\\MOVA.INI"] =
        "Editor=" + std::string(1 << 20, 'x') + "\nHistMin=6\nHistMin=" + std::string(1 << 20, '1') + "\n";
    EXPECT_EQ(shell.Parse(mainFile), 0);
    EXPECT_EQ(shell.Value(u"Editor").size(), longestIniLine - 7);
    EXPECT_EQ(shell.Value(u"HistMin"), u"6");
    ASSERT_EQ(shell.world.reports.size(), 1u);
    EXPECT_EQ(shell.world.reports[0].place.line, 3u);
    EXPECT_EQ(shell.world.reports[0].place.text.size(), longestIniLine);
}

TEST(IniParse, AskingForEachLine)
{
    Shell shell;
    shell.world.answers = {IniAnswer::No, IniAnswer::Yes, IniAnswer::Cancel};
    shell.world.files[u"C:\\shell\\MOVA.INI"] =
        "INIQuery=Yes\n;comment\nHistMin=1\nFuzzyCD=1\nEvalMin=1\nBeepFreq=100\n";
    shell.Parse(mainFile);
    EXPECT_EQ(shell.world.asked, (std::vector<std::u16string>{u"HistMin=1", u"FuzzyCD=1", u"EvalMin=1"}));
    EXPECT_EQ(shell.Value(u"HistMin"), u"0");
    EXPECT_EQ(shell.Value(u"FuzzyCD"), u"1");
    EXPECT_EQ(shell.Value(u"EvalMin"), u"1");
    EXPECT_EQ(shell.Value(u"BeepFreq"), u"100");
    EXPECT_EQ(shell.Value(u"INIQuery"), u"No");
}

} // namespace
