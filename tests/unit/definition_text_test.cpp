#include "commands/definition_text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

TEST(DefinitionText, TellsRequestsApart)
{
    struct Row {
        const char16_t* text;
        DefinitionForm variable;
        DefinitionForm listEntry;
    };
    const Row rows[] = {
        {u"", DefinitionForm::All, DefinitionForm::All},
        {u" \t", DefinitionForm::All, DefinitionForm::All},
        {u"name", DefinitionForm::Query, DefinitionForm::Query},
        {u"  name  ", DefinitionForm::Query, DefinitionForm::Query},
        {u"name=", DefinitionForm::Define, DefinitionForm::Define},
        {u"name=x y", DefinitionForm::Define, DefinitionForm::Define},
        {u"name value", DefinitionForm::Query, DefinitionForm::Define},
        {u"name =value", DefinitionForm::Define, DefinitionForm::Define},
        {u"=x", DefinitionForm::Define, DefinitionForm::Define},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(FormOf(row.text, false), row.variable) << std::u16string(row.text).size();
        EXPECT_EQ(FormOf(row.text, true), row.listEntry) << std::u16string(row.text).size();
    }
}

TEST(DefinitionText, DropsQuotesAroundADefinition)
{
    const std::pair<const char16_t*, const char16_t*> rows[] = {
        {u"\"a=b c\"", u"a=b c"},
        {u"\"a=b", u"a=b"},
        {u"\"a=b\" ignored", u"a=b"},
        {u"\"a=\"b\"\"", u"a=\"b\""},
        {u"a=\"b\"", u"a=\"b\""},
        {u"\"", u""},
        {u"", u""},
    };
    for (const auto& [text, expected] : rows) {
        CString definition(text);
        DropDefinitionQuotes(definition);
        EXPECT_EQ(std::u16string(definition.view()), expected);
    }
}

TEST(DefinitionText, TakesSwitchesOffTheFront)
{
    struct Row {
        const char16_t* text;
        std::string letters; // of the switches that are found
        const char16_t* left;
        const char16_t* refused;
    };
    const Row rows[] = {
        {u"/a 1+1", "A", u"1+1", u""},
        {u"/A1+1", "A", u"1+1", u""},
        {u"/a\"x=1/2\"", "A", u"\"x=1/2\"", u""},
        {u"/n /a 4/2", "AN", u"4/2", u""},
        {u"/p=text", "P", u"=text", u""},
        {u"/pname=Enter: ", "P", u"name=Enter: ", u""},
        {u"/u /e name=/a", "EU", u"name=/a", u""},
        {u"/u/e/o  name=x", "EOU", u"name=x", u""},
        {u"/// /x=1", "", u"/x=1", u""},
        {u"/x name=1", "", u"/x name=1", u"/x"},
        {u"/r/xfile", "R", u"/xfile", u"/xfile"},
        {u"/rfile", "", u"/rfile", u"/rfile"},
        {u"/d/s/v", "DSV", u"", u""},
        {u"name=/a", "", u"name=/a", u""},
        {u"/", "", u"/", u""},
        {u"", "", u"", u""},
    };
    for (const Row& row : rows) {
        CString text(row.text);
        const SetSwitches found = TakeSetSwitches(text, u'/');
        std::string letters;
        auto note = [&](bool flag, char letter) { letters += flag ? std::string(1, letter) : ""; };
        note(found.arithmetic, 'A');
        note(found.standard, 'D');
        note(found.process, 'E');
        note(found.quiet, 'N');
        note(found.keepExisting, 'O');
        note(found.prompt, 'P');
        note(found.readFiles, 'R');
        note(found.system, 'S');
        note(found.user, 'U');
        note(found.isVolatile, 'V');
        EXPECT_EQ(letters, row.letters);
        EXPECT_EQ(std::u16string(text.view()), row.left);
        EXPECT_EQ(std::u16string(found.refused.view()), row.refused);
    }
    CString typed(u"/T:integer:\"a whole number\" x=5");
    EXPECT_EQ(TakeSetSwitches(typed, u'/').typeSpec, u"integer:\"a whole number\"");
    EXPECT_EQ(typed, u"x=5");
    CString dashed(u"-a 1/2");
    EXPECT_TRUE(TakeSetSwitches(dashed, u'-').arithmetic);
    EXPECT_EQ(dashed, u"1/2");
}

TEST(DefinitionText, JoinsTheLinesOfAFile)
{
    const char16_t* lines[] = {
        u"a=1",     u"",        u": comment", u"  ; comment ^", u"b=one ^",
        u"   two^", u"; three", u"  c=^^",    u"d=x",           u"e=unfinished^",
    };
    DefinitionLines reader(u'^');
    std::vector<std::u16string> found;
    CString definition;
    for (const char16_t* line : lines)
        if (reader.Add(line, definition))
            found.emplace_back(definition.view());
    if (reader.Finish(definition))
        found.emplace_back(definition.view());
    EXPECT_EQ(found,
              (std::vector<std::u16string>{u"a=1", u"b=one two; three", u"c=^^", u"d=x", u"e=unfinished"}));
    EXPECT_FALSE(reader.Finish(definition));
}

TEST(DefinitionText, SeesDialogs)
{
    EXPECT_TRUE(AsksForDialog(u"/=", u'/'));
    EXPECT_FALSE(AsksForDialog(u"x /=", u'/'));
    EXPECT_FALSE(AsksForDialog(u"/", u'/'));
}

} // namespace
