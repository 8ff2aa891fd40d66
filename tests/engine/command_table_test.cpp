#include "engine/tables.h"

#include <string>

#include <gtest/gtest.h>
#include <windows.h>

#include "commands/unbuilt.h"
#include "config/ini_file.h"
#include "core/command_lookup.h"
#include "engine/command_entry.h"
#include "engine/command_state.h"
#include "engine/movacore.h"
#include "engine/output.h"
#include "platform/standard_handles.h"
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

// Standard output goes into a temporary file as long as this lives.
class CapturedOutput {
public:
    CapturedOutput()
    {
        wchar_t folder[MAX_PATH];
        wchar_t name[MAX_PATH];
        GetTempPathW(MAX_PATH, folder);
        GetTempFileNameW(folder, L"out", 0, name);
        file = OwnedHandle(CreateFileW(name, GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                       FILE_FLAG_DELETE_ON_CLOSE, nullptr));
        SetStandardHandle(1, file.Get());
        ForgetHandleKinds();
    }
    ~CapturedOutput()
    {
        SetStandardHandle(1, before);
        ForgetHandleKinds();
    }
    CapturedOutput(const CapturedOutput&) = delete;
    CapturedOutput& operator=(const CapturedOutput&) = delete;

    // What was written since the last call.
    std::string Take()
    {
        std::string text(SetFilePointer(file.Get(), 0, nullptr, FILE_CURRENT), '\0');
        DWORD count = 0;
        SetFilePointer(file.Get(), 0, nullptr, FILE_BEGIN);
        ReadFile(file.Get(), text.data(), static_cast<DWORD>(text.size()), &count, nullptr);
        SetFilePointer(file.Get(), 0, nullptr, FILE_BEGIN);
        SetEndOfFile(file.Get());
        return text;
    }

private:
    HANDLE before = StandardHandle(1);
    OwnedHandle file;
};

TEST(CommandTable, ARequestForHelpShowsItAndRunsNothing)
{
    InitializeIniFile();
    CapturedOutput output;
    for (int i = 0; i < nInternalCommands; ++i) {
        const BUILTIN& row = aInternalCommands[i];
        if ((row.flags & command_flags::help) == 0)
            continue;
        SCOPED_TRACE(ToUtf8(row.name));
        CString arguments(u" x /?");
        EXPECT_EQ(RunInternalCommand(row, arguments), 0);
        EXPECT_TRUE(output.Take().starts_with(ToUtf8(row.name)));
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
