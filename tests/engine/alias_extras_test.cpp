// Aliases of prompts, directories and keys in the real lists.
#include <gtest/gtest.h>

#include "config/setting_values.h"
#include "core/alias_extras.h"
#include "engine/inifile.h"
#include "engine/results.h"
#include "engine/state.h"
#include "expand/lists.h"

namespace {

class AliasExtras : public testing::Test {
protected:
    void SetUp() override
    {
        IniClear(&aIniFile);
        aIniFile.LocalAliases = 1;
        aIniFile.GlobalAliases = 0;
        InitializeLocalGlobalLists();
        for (const char16_t* line : {u"shortp=other", u"other=[$p]", u"ring=ring", u"docs:=\"c:\\my docs\\\"",
                                     u"up=docs:..", u"@Ctrl-F5=dir", u"@@F6=exit"}) {
            CString entry(line);
            ASSERT_EQ(AddVariableToList(entry, VariableStore::LocalAliases), 0);
        }
    }
    void TearDown() override
    {
        aGlobals.expansionMask = 0;
        aIniFile.LocalAliases = 0;
        InitializeLocalGlobalLists();
    }

    static CString Prompt(std::u16string_view text)
    {
        CString result;
        return PromptAliases(text, result) == result::success ? result : CString(u"failed");
    }
};

TEST_F(AliasExtras, PromptsThatAreNames)
{
    EXPECT_EQ(Prompt(u" shortp "), u"[$p]");
    EXPECT_EQ(Prompt(u"shortp$g"), u"shortp$g");
    EXPECT_EQ(Prompt(u"$p$g"), u"$p$g");
    EXPECT_EQ(Prompt(u""), u"");
    EXPECT_EQ(Prompt(u"ring"), u"failed");
    aGlobals.expansionMask = expansion_mask::noNestedAliases;
    EXPECT_EQ(Prompt(u"shortp"), u"other");
    aGlobals.expansionMask = expansion_mask::noAliases;
    EXPECT_EQ(Prompt(u"shortp"), u"shortp");
}

TEST_F(AliasExtras, Keys)
{
    const auto text = FindKeyAlias(u"ctrl-f5");
    ASSERT_TRUE(text.has_value());
    EXPECT_EQ(text->text, u"dir");
    EXPECT_FALSE(text->runs);
    const auto command = FindKeyAlias(u"F6");
    ASSERT_TRUE(command.has_value());
    EXPECT_EQ(command->text, u"exit");
    EXPECT_TRUE(command->runs);
    EXPECT_FALSE(FindKeyAlias(u"F5").has_value());
    EXPECT_FALSE(FindKeyAlias(u"A").has_value());
}

} // namespace
