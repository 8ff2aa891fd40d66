#include "config/ini_writer.h"

#include <ostream>

#include <gtest/gtest.h>

#include "config/ini_parser.h"
#include "config_fake_world.h"

namespace {

class Latin1 final : public AnsiConverter {
public:
    CString FromAnsi(std::string_view bytes) override { return world.FromAnsi(bytes); }
    std::string ToAnsi(std::u16string_view text) override
    {
        std::string bytes;
        for (const char16_t unit : text)
            bytes += unit < 0x100 ? static_cast<char>(unit) : '?';
        return bytes;
    }

private:
    FakeWorld world;
};

std::string Changed(std::string_view file, const IniChange& change, int skipMask = ini_section::secondary)
{
    Latin1 latin1;
    IniDocument document(file, latin1);
    document.Apply(change, skipMask);
    return document.Bytes();
}

std::string Utf16(std::u16string_view text)
{
    std::string bytes = "\xFF\xFE";
    for (const char16_t unit : text)
        bytes += {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
    return bytes;
}

IniChange Number(std::u16string_view value) { return {u"BeepFreq", value, u" \t;"}; }
IniChange Text(std::u16string_view value) { return {u"Editor", value, u"\t"}; }
IniChange Removal() { return {u"BeepFreq", {}, u" \t;", true}; }

struct Case {
    const char* what;
    const char* before;
    IniChange change;
    const char* after;
};
void PrintTo(const Case& row, std::ostream* out) { *out << row.what; }

class IniWriter : public testing::TestWithParam<Case> {};

TEST_P(IniWriter, ChangesThatLineAlone)
{
    EXPECT_EQ(Changed(GetParam().before, GetParam().change), GetParam().after);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, IniWriter,
    testing::Values(
        Case{"blanks, spelling and comment stay", "  beepfreq =\t440 \t; mine\r\nA=1\r\n", Number(u"9"),
             "  beepfreq =\t9 \t; mine\r\nA=1\r\n"},
        Case{"nothing behind the name", "BeepFreq\n", Number(u"9"), "BeepFreq=9\n"},
        Case{"a comment for a value", "BeepFreq=; none\n", Number(u"9"), "BeepFreq=9 ; none\n"},
        Case{"a text holds semicolons", "Editor=a;b  \n", Text(u"c"), "Editor=c  \n"},
        Case{"a text ends at a tab", "Editor=a b\trest\n", Text(u"c d"), "Editor=c d\trest\n"},
        Case{"a text is emptied", "Editor=a\n", Text(u""), "Editor=\n"},
        Case{"the last line counts", "BeepFreq=1\nBeepFreq=2\n", Number(u"9"), "BeepFreq=1\nBeepFreq=9\n"},
        Case{"a comment is no setting", ";BeepFreq=1\n", Number(u"9"), ";BeepFreq=1\nBeepFreq=9\n"},
        Case{"a longer name is another", "BeepFreqs=1\n", Number(u"9"), "BeepFreqs=1\nBeepFreq=9\n"},
        Case{"in a section that counts", "A=1\n[Primary]\nBeepFreq=1\n", Number(u"9"),
             "A=1\n[Primary]\nBeepFreq=9\n"},
        Case{"not in one that does not", "[Secondary]\nBeepFreq=1\n[x]\nBeepFreq=2\n", Number(u"9"),
             "BeepFreq=9\n[Secondary]\nBeepFreq=1\n[x]\nBeepFreq=2\n"},
        Case{"behind the last setting before the sections", "A=1\n\n; keys\n[Keys]\nTab=x\n", Number(u"9"),
             "A=1\nBeepFreq=9\n\n; keys\n[Keys]\nTab=x\n"},
        Case{"behind the comment at the top", "; my file\r\n\r\n[Keys]\r\n", Number(u"9"),
             "; my file\r\nBeepFreq=9\r\n\r\n[Keys]\r\n"},
        Case{"not between a comment and its section", "; keys\n[Keys]\n", Number(u"9"),
             "BeepFreq=9\n; keys\n[Keys]\n"},
        Case{"an included file could overrule it", "BeepFreq=1\nInclude=x\n\n[Keys]\n", Number(u"9"),
             "BeepFreq=1\nInclude=x\nBeepFreq=9\n\n[Keys]\n"},
        Case{"a last line without end", "A=1\r\nB=2", Number(u"9"), "A=1\r\nB=2\r\nBeepFreq=9\r\n"},
        Case{"an empty file", "", Number(u"9"), "BeepFreq=9\r\n"},
        Case{"all lines are removed", "BeepFreq=1\nA=1\n[Primary]\nBeepFreq=2\n", Removal(),
             "A=1\n[Primary]\n"},
        Case{"nothing to remove", "A=1", Removal(), "A=1"},
        Case{"UTF-8 stays", "; \xC3\xA9\nEditor=a\n", Text(u"\u0416"), "; \xC3\xA9\nEditor=\xD0\x96\n"},
        Case{"a mark stays",
             "\xEF\xBB\xBF"
             "Editor=a\n",
             Text(u"b"),
             "\xEF\xBB\xBF"
             "Editor=b\n"},
        Case{"the code page stays", "; \xE9\nEditor=a\n", Text(u"\u00E8"), "; \xE9\nEditor=\xE8\n"},
        Case{"a character that the code page lacks", "; \xE9\nEditor=a\n", Text(u"\u0416"),
             "\xEF\xBB\xBF; \xC3\xA9\nEditor=\xD0\x96\n"},
        Case{"bytes of a code page that would look like UTF-8", "Editor=a\n", Text(u"\u00C3\u00A9"),
             "\xEF\xBB\xBF"
             "Editor=\xC3\x83\xC2\xA9\n"},
        Case{"broken UTF-8 behind a mark is kept", "\xEF\xBB\xBF; \xC3\nEditor=a\n", Text(u"b"),
             "\xEF\xBB\xBF; \xC3\nEditor=b\n"}));

TEST(IniWriter, KeepsUtf16)
{
    const std::string before = Utf16(u"; \u0416\r\nA=1\r\n[Keys]\r\n") + "x";
    EXPECT_EQ(Changed(before, Number(u"9")), Utf16(u"; \u0416\r\nA=1\r\nBeepFreq=9\r\n[Keys]\r\n") + "x");
}

TEST(IniWriter, OtherShellsObeyOtherSections)
{
    const char* file = "[Primary]\nBeepFreq=1\n[Secondary]\nBeepFreq=2\n[Primary]\nBeepFreq=3\n";
    EXPECT_EQ(Changed(file, Number(u"9"), ini_section::primary),
              "[Primary]\nBeepFreq=1\n[Secondary]\nBeepFreq=9\n[Primary]\nBeepFreq=3\n");
}

// Every kind of value must come back from the file as it was.
TEST(IniWriter, ValuesAreReadBack)
{
    const char16_t* lines[] = {u"CommandSep=0x3B", u"EscapeChar=0x3D",   u"ParameterChar=0x25",
                               u"SwitchChar=Tab",  u"BeepFreq=20000",    u"CDDWinLeft=-3",
                               u"HistDups=Last",   u"ErrorColors=4",     u"StdColors=bright white on blue",
                               u"Editor=a;b =c",   u"MailPassword=p;%q", u"LogName=C:\\x;y.log"};
    Shell first;
    for (const char16_t* line : lines)
        first.Line(line);
    Latin1 latin1;
    IniDocument document("", latin1);
    for (const Directive& directive : aDirectives)
        if (directive.Type() != DirectiveType::Include)
            document.Apply(ChangeForSetting(directive, first.ini), 0);
    Shell second;
    second.world.expandPercents = true;
    second.world.files[u"m.ini"] = document.Bytes();
    ASSERT_EQ(second.Parse(u"m.ini", 0), 0);
    for (const auto& report : second.world.reports)
        ADD_FAILURE() << "line " << report.place.line << " is refused, code " << report.error.code;
    for (const Directive& directive : aDirectives) {
        if (directive.Type() == DirectiveType::Include)
            continue;
        CString a;
        CString b;
        if (directive.Type() == DirectiveType::Protected) {
            a = SettingString(directive, first.ini);
            b = SettingString(directive, second.ini);
        } else {
            FormatValue(directive, first.ini, a);
            FormatValue(directive, second.ini, b);
        }
        EXPECT_EQ(a.view(), b.view());
    }
}

} // namespace
