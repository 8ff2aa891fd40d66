// The small rules by which commands become programs.
#include <gtest/gtest.h>

#include <string>

#include "core/association_template.h"
#include "core/executable_type.h"
#include "core/extension_variables.h"
#include "core/invoked_name.h"
#include "core/zone.h"
#include "text/escapes.h"
#include "text/scanner.h"

namespace {

TEST(InvokedName, EndsAtBackQuoteAndEqualsSign)
{
    struct Case {
        const char16_t* command;
        const char16_t* firstWord;
        const char16_t* name;
        const char16_t* arguments;
    };
    const Case cases[] = {
        {u"prog  a \"b c\" ", u"prog", u"prog", u"  a \"b c\" "},
        {u"  prog", u"prog", u"prog", u""},
        {u"a=b c", u"a=b", u"a", u"=b c"},
        {u"prog`x y`", u"prog`x y`", u"prog", u"`x y`"},
        {u"=x", u"=x", u"=x", u""},
        {u"\"a=b\"=c d", u"\"a=b\"=c", u"\"a=b\"", u"=c d"},
        {u"two words x", u"two words", u"two words", u" x"}, // a blank that was escaped
    };
    for (const Case& c : cases) {
        const InvokedName call = ReadInvokedName(c.command, c.firstWord, Syntax());
        EXPECT_EQ(call.name, c.name);
        EXPECT_EQ(call.arguments, c.arguments);
    }
}

TEST(InvokedName, SwitchesWithoutBlank)
{
    InvokedName call{u"list/w/x", u" y"};
    EXPECT_TRUE(CutAtSwitch(call, Syntax()));
    EXPECT_EQ(call.name, u"list");
    EXPECT_EQ(call.arguments, u"/w/x y");
    InvokedName quoted{u"\"a/b\"", u""};
    EXPECT_FALSE(CutAtSwitch(quoted, Syntax()));
    InvokedName leading{u"/x", u""};
    EXPECT_FALSE(CutAtSwitch(leading, Syntax()));
}

TEST(ProtectText, ComesBackAsItWas)
{
    const Syntax syntax;
    for (const char16_t* text : {u"a & b|c <d> (e)", u"^q ^^", u"\"x & y\" & z", u"lone \" quote & x",
                                 u"`a & b` & `", u"a\nb\rc", u"", u"C:\\a b\\^x"}) {
        CString line = ProtectText(text, syntax);
        EXPECT_EQ(scan(line, u"&|<>\n", quotes::both, syntax), std::u16string_view::npos);
        UnEscapeLine(line, syntax);
        EXPECT_EQ(line, text);
    }
    EXPECT_EQ(ProtectText(u"100% \"%x%\" `%y`", syntax), u"100%% \"%%x%%\" `%y`");
}

TEST(ExtensionVariables, NameSeveralExtensions)
{
    const std::vector<CString> entries = {u"=C:=C:\\x",    u"PATH=C:\\", u".a;.b=first.exe /x",
                                          u".htm*=second", u".empty=",   u".b=third"};
    EXPECT_EQ(FindExtensionCommand(entries, u".B"), u"first.exe /x");
    EXPECT_EQ(FindExtensionCommand(entries, u".html"), u"second");
    EXPECT_EQ(FindExtensionCommand(entries, u".empty"), u"");
    EXPECT_EQ(FindExtensionCommand(entries, u""), u"");
    EXPECT_EQ(FindExtensionCommand(entries, u"."), u"");

    std::vector<CString> extensions;
    for (const CString& entry : entries)
        AddVariableExtensions(entry, extensions);
    const std::vector<CString> expected = {u".a", u".b", u".htm*", u".b"};
    EXPECT_EQ(extensions, expected);
}

TEST(AssociationTemplate, IsFilled)
{
    struct Case {
        const char16_t* text;
        const char16_t* line;
    };
    const Case cases[] = {
        {u"\"C:\\e d.exe\" \"%1\"", u"\"C:\\e d.exe\" \"C:\\a b.txt\""},
        {u"e.exe %1", u"e.exe \"C:\\a b.txt\""}, // quoted where the template forgot it
        {u"e.exe \"%L\" %*", u"e.exe \"C:\\a b.txt\" x \"y z\" w"},
        {u"e.exe /p %V %3-%2", u"e.exe /p \"C:\\a b.txt\" \"y z\"-x"},
        {u"e.exe", u"e.exe \"C:\\a b.txt\""}, // no place told: at the end
        {u"e.exe %1 /cd:%W 100%%", u"e.exe \"C:\\a b.txt\" /cd:C:\\cur 100%"},
        {u"e.exe \"%1\" /idlist,%I", u"e.exe \"C:\\a b.txt\" /idlist,"},
        {u"e.exe \"%1\" %", u"e.exe \"C:\\a b.txt\" %"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(FillAssociation(c.text, u"C:\\a b.txt", u" x \"y z\" w", u"C:\\cur"), c.line);
}

TEST(AssociationTemplate, ProgramAndShell)
{
    EXPECT_EQ(ProgramOfTemplate(u" \"C:\\a b\\c.exe\" %1"), u"C:\\a b\\c.exe");
    EXPECT_EQ(ProgramOfTemplate(u"C:\\Program Files\\c.exe /x"), u"C:\\Program Files\\c.exe");
    EXPECT_EQ(ProgramOfTemplate(u"C:\\x.executive\\c.EXE"), u"C:\\x.executive\\c.EXE");
    EXPECT_EQ(ProgramOfTemplate(u"c.com %1"), u"c.com");
    EXPECT_EQ(ProgramOfTemplate(u"\"C:\\unclosed"), u"C:\\unclosed");
    EXPECT_EQ(ProgramOfTemplate(u"  "), u"");
    EXPECT_TRUE(NeedsWindowsShell(u"\"C:\\w.exe\" /n /dde"));
    EXPECT_TRUE(NeedsWindowsShell(u"C:\\windows\\system32\\RunDll32.exe x.dll,Show %1"));
    EXPECT_TRUE(NeedsWindowsShell(u"e.exe /idlist,%I,%L"));
    EXPECT_FALSE(NeedsWindowsShell(u"e.exe \"%1\""));
}

constexpr char kind32 = '\x01'; // the high byte of the optional header's mark
constexpr char kind64 = '\x02';

std::string Portable(char kind, char subsystem)
{
    std::string header(newHeaderBytes, '\0');
    header.replace(0, 2, "PE");
    header[24] = '\x0B';
    header[25] = kind;
    header[24 + 68] = subsystem;
    return header;
}

TEST(ExecutableType, ByHeader)
{
    EXPECT_EQ(TypeOfNewHeader(Portable(kind64, 3)), program_type::console64);
    EXPECT_EQ(TypeOfNewHeader(Portable(kind64, 2)), program_type::windowed64);
    EXPECT_EQ(TypeOfNewHeader(Portable(kind32, 3)), program_type::console32);
    EXPECT_EQ(TypeOfNewHeader(Portable(kind32, 2)), program_type::windowed32);
    EXPECT_EQ(TypeOfNewHeader(Portable(kind32, 1)), program_type::other32);
    EXPECT_EQ(TypeOfNewHeader(""), program_type::dos);
    EXPECT_EQ(TypeOfNewHeader("NE"), program_type::windowed16);
    for (const int type : {3, 6, 9})
        EXPECT_TRUE(program_type::IsWindowed(type));
    for (const int type : {0, 1, 2, 4, 5, 7, 8})
        EXPECT_FALSE(program_type::IsWindowed(type));
}

TEST(ExecutableType, WhereTheNewHeaderStands)
{
    std::string start(64, '\0');
    start.replace(0, 2, "MZ");
    start[0x3C] = '\x80';
    start[0x3D] = '\x01';
    EXPECT_EQ(NewHeaderPlace(start), 0x180);
    EXPECT_EQ(NewHeaderPlace("MZ short"), 0);
    EXPECT_EQ(NewHeaderPlace("#!script"), -1);
    EXPECT_EQ(NewHeaderPlace(""), -1);
    start.replace(0x3C, 4, "\xFF\xFF\xFF\xFF");
    EXPECT_EQ(NewHeaderPlace(start), 0xFFFFFFFF);
}

TEST(Zone, OfStream)
{
    EXPECT_EQ(ZoneOfStream("[ZoneTransfer]\r\nZoneId=3\r\nHostUrl=about:internet"), 3);
    EXPECT_EQ(ZoneOfStream("zoneid=0"), 0);
    EXPECT_EQ(ZoneOfStream("MyZoneId=3"), -1);
    EXPECT_EQ(ZoneOfStream("ZoneId="), -1);
    EXPECT_EQ(ZoneOfStream(""), -1);
}

} // namespace
