#include "engine/tables.h"

#include <string>

#include <gtest/gtest.h>

#include "commands/unbuilt.h"
#include "config/ini_file.h"
#include "core/command_lookup.h"
#include "engine/command_state.h"
#include "engine/movacore.h"
#include "text/encoding.h"
#include "text/words.h"

namespace {

using View = std::u16string_view;

// Whether one of the names of the row's command is the first word of the text.
bool BeginsWithName(View text, const BUILTIN& row)
{
    const CString word = GetNthArgument(text, 0, Syntax{});
    for (int i = 0; i < nInternalCommands; ++i)
        if (aInternalCommands[i].help == row.help && BeginsNoCase(word, aInternalCommands[i].name))
            return true;
    return false;
}

TEST(CommandTable, EveryBuiltCommandHasHelp)
{
    for (int i = 0; i < nInternalCommands; ++i) {
        const BUILTIN& row = aInternalCommands[i];
        SCOPED_TRACE(ToUtf8(row.name));
        ASSERT_NE(row.help, nullptr);
        const bool unbuilt = row.handler == Unbuilt_Command;
        EXPECT_EQ(row.help == &unbuiltHelp, unbuilt);
        if (unbuilt)
            continue;
        EXPECT_TRUE(View(row.help->summary).ends_with(u'.'));
        EXPECT_TRUE(BeginsWithName(row.help->usage, row)) << ToUtf8(row.help->usage);
        EXPECT_FALSE(View(row.help->examples).empty());
    }
}

TEST(CommandTable, EveryNameFindsItsRow)
{
    for (int i = 0; i < nInternalCommands; ++i)
        EXPECT_EQ(FindInternalCommand(aInternalCommands[i].name, false), i);
}

TEST(CommandTable, NamesEndWhereTheRowLetsThem)
{
    InitializeIniFile(); // the syntax characters
    const struct {
        const char16_t* line;
        const char16_t* name; // null: not an internal command
    } cases[] = {
        {u"cd\\", u"CD"},
        {u"cd..", u"CD"},
        {u"Echo.", u"ECHO"},
        {u"echo(x", u"ECHO"},
        {u"echo[x", u"ECHO"},
        {u"echo]x", u"ECHO"},
        {u"  ver/r", u"VER"},
        {u"set,x", u"SET"},
        {u"beep\\", nullptr},
        {u"beep.", nullptr},
        {u"echos\\x", u"ECHOS"},
        {u"PROCESSMONITORS", nullptr},
        {u"FIREWIREMONITORS", u"FIREWIREMONITOR"}, // names are read up to 15 characters
        {u"cdx", nullptr},
        {u"http://echo", nullptr},
        {u"", nullptr},
    };
    for (const auto& c : cases) {
        const BUILTIN* row = nullptr;
        const int index = FindInternalCommand(c.line, false, &row);
        EXPECT_EQ(index < 0 ? "" : ToUtf8(row->name), c.name ? ToUtf8(c.name) : "") << ToUtf8(c.line);
    }
}

TEST(CommandTable, TheBasicSetIsThatOfAPlainPrompt)
{
    SetInternalCommands(0);
    EXPECT_EQ(QueryIsCommandEnabled(u"assoc"), 1);
    EXPECT_EQ(QueryIsCommandEnabled(u"alias"), 0);
    EXPECT_LT(FindInternalCommand(u"alias", false), 0);
    EXPECT_GE(FindInternalCommand(u"alias", true), 0);
    SetInternalCommands(1);
    EXPECT_EQ(QueryIsCommandEnabled(u"alias"), 1);
}

TEST(CommandTable, OneCommandCanBeSwitchedOffAndOn)
{
    EXPECT_EQ(DisableInternalCommand(u"ver"), 0);
    EXPECT_LT(FindInternalCommand(u"ver", false), 0);
    EXPECT_EQ(EnableInternalCommand(u"ver"), 0);
    EXPECT_GE(FindInternalCommand(u"ver", false), 0);
    EXPECT_EQ(EnableInternalCommand(u"nonsense"), 2);
    EXPECT_EQ(SetInternalCommandFlags(u"nonsense", 1), 2);
    EXPECT_EQ(QueryInternalCommandFlags(u"nonsense"), 0u);
}

} // namespace
