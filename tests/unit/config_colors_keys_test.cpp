#include <gtest/gtest.h>

#include <string>

#include "config/colors.h"
#include "config/directives.h"
#include "config/key_functions.h"
#include "config/key_names.h"
#include "config/protected_text.h"
#include "text/words.h"

namespace {

TEST(Colors, Pairs)
{
    struct Case {
        std::u16string_view text;
        int attribute; // -1: refused
    };
    const Case cases[] = {
        {u"white on blue", 0x17},
        {u"BRIGHT White ON Blue", 0x1F},
        {u"bri yel on bri bla", 0x8E},
        {u" red \t on  black ", 0x04},
        {u"14 on 1", 0x1E},
        {u"0 on 15", 0xF0},
        {u"gray on brown", 0x68},
        {u"gre on grey", 0x82},
        {u"bl on red", -1},
        {u"16 on 1", -1},
        {u"-1 on 1", -1},
        {u"1x on 2", -1},
        {u"bright 3 on 1", -1},
        {u"bright on black", -1},
        {u"red in black", -1},
        {u"redon black", -1},
        {u"reddish on black", -1},
        {u"red on black on", -1},
        {u"blue on 1", -1},
        {u"on", -1},
        {u"", -1},
    };
    for (const Case& one : cases) {
        const auto pair = ParseColorPair(one.text);
        EXPECT_EQ(pair ? static_cast<int>(*pair) : -1, one.attribute)
            << std::string(one.text.begin(), one.text.end());
    }
}

TEST(Colors, TextsReadBack)
{
    for (unsigned attribute = 0; attribute < 256; ++attribute) {
        const auto pair = ParseColorPair(ColorText(attribute));
        if (attribute % 16 == attribute / 16)
            EXPECT_FALSE(pair);
        else
            EXPECT_EQ(pair, attribute);
    }
}

TEST(Colors, ReadingStopsBehindTheColor)
{
    constexpr std::u16string_view text = u"bright red on blue echo hello";
    std::size_t at = 0;
    EXPECT_EQ(ReadColorPair(text, at), 0x1Cu);
    EXPECT_EQ(text.substr(at), u" echo hello");
    EXPECT_FALSE(ReadColor(text, at));
    EXPECT_EQ(text.substr(at), u" echo hello");
}

TEST(KeyNames, Codes)
{
    struct Case {
        std::u16string_view word;
        int code; // 0: none
    };
    const Case cases[] = {
        {u"a", 'a'},
        {u"5", '5'},
        {u"\xFF", 255},
        {u"\x100", 0},
        {u"esc", 27},
        {u"Tab", 9},
        {u"SPACE", 32},
        {u"Enter", 13},
        {u"ctrl-a", 1},
        {u"Ctrl-Z", 26},
        {u"Ctrl-1", 0},
        {u"Ctrl-", 0},
        {u"Alt-255", 255},
        {u"Alt-256", 0},
        {u"alt-", 0},
        {u"27", 27},
        {u"0x7C", 124},
        {u"0x", 0},
        {u"00", 0},
        {u"256", 0},
        {u"+9", 0},
        {u"F12", 0},
        {u"&&", 0},
        {u"", 0},
        {std::u16string_view(u"\0", 1), 0},
    };
    for (const Case& one : cases) {
        const auto code = CharacterCode(one.word);
        EXPECT_EQ(code ? *code : 0, one.code) << std::string(one.word.begin(), one.word.end());
    }
}

TEST(KeyFunctions, LookupByCategory)
{
    KeyBindings keys;
    const auto name = [&](unsigned categories, std::u16string_view key) -> std::u16string_view {
        const int function = keys.FindKeyFunction(categories, key);
        return function < 0 ? u"" : aKeyFunctions[static_cast<std::size_t>(function)].name;
    };
    using namespace key_category;
    EXPECT_EQ(name(lineEditor, u"f10"), u"AddFile");
    EXPECT_EQ(name(editing, u"F10"), u"");
    EXPECT_EQ(name(lineEditor, u"ctrl-h"), u"Backspace");
    EXPECT_EQ(name(lineEditor, u"Ctrl"), u"");
    EXPECT_EQ(name(lineEditor, u""), u"");
    EXPECT_EQ(name(popup, u"Enter"), u"PopupWinSelect");
    EXPECT_EQ(name(consolePopup, u"Ctrl-D"), u"PopupWinDel");
    EXPECT_EQ(name(lineEditor, u"Ctrl-D"), u"DelHistory");
    EXPECT_EQ(name(extendedHistory, u"Ctrl-D"), u"XHistDelete");
    EXPECT_EQ(name(list, u"w"), u"ListWrap");

    keys.SetKeys(KeyBindings::Find(u"addfile"), u" F2   Ctrl-F10 ");
    EXPECT_EQ(name(lineEditor, u"F10"), u"");
    EXPECT_EQ(name(lineEditor, u"Ctrl-F10"), u"AddFile");
    keys.SetKeys(KeyBindings::Find(u"AddFile"), u"");
    EXPECT_EQ(name(lineEditor, u"Ctrl-F10"), u"");
    keys.Reset();
    EXPECT_EQ(name(lineEditor, u"F10"), u"AddFile");
    EXPECT_EQ(KeyBindings::Find(u"AddFiles"), -1);
}

// Two functions with one key in one category would leave the second out of reach.
TEST(KeyFunctions, DefaultsDoNotCollide)
{
    using namespace key_category;
    const KeyBindings keys;
    for (std::size_t function = 0; function < nKeyFunctions; ++function) {
        const KeyFunctionRow& row = aKeyFunctions[function];
        const unsigned categories = (row.category & lineEditor) != 0 ? lineEditor : row.category;
        std::u16string key;
        for (const char16_t unit : std::u16string(row.keys) + u' ') {
            if (unit != u' ') {
                key += unit;
                continue;
            }
            EXPECT_EQ(keys.FindKeyFunction(categories, key), static_cast<int>(function))
                << std::string(key.begin(), key.end());
            key.clear();
        }
        EXPECT_EQ(FindDirective(row.name), -1);
    }
}

TEST(ProtectedText, RoundTrip)
{
    const std::u16string_view texts[] = {u"", u"a", u"~!", u"with blanks and \x416 letters",
                                         u"0123456789abcdef"};
    for (const std::u16string_view plain : texts) {
        const CString value = Encipher(plain);
        EXPECT_EQ(value.size(), plain.size() + 1);
        EXPECT_EQ(value.view().substr(1).find_first_of(u"\t\r\n"), std::u16string_view::npos);
        EXPECT_EQ(Decipher(value), plain);
        EXPECT_EQ(Decipher(plain), plain);
    }
}

TEST(KeyNames, HaveOneSpelling)
{
    const struct {
        std::u16string_view word;
        std::u16string_view name;
    } rows[] = {
        {u"f5", u"F5"},
        {u"ctrl-shift-left", u"Ctrl-Shift-Left"},
        {u"SHIFT-win-ALT-ctrl-pagedown", u"Ctrl-Alt-Shift-Win-PgDn"},
        {u"ctrl-a", u"Ctrl-A"},
        {u"Ctrl--", u"Ctrl--"},
        {u"Ctrl-5", u"Ctrl-5"},
        {u"Alt-255", u"Alt-255"},
        {u"F24", u"F24"},
        {u"x", u"X"},
        {u"F25", u""},
        {u"F0", u""},
        {u"F05", u""},
        {u"F", u"F"},
        {u"F1x", u""},
        {u"Ctrl-255", u""},
        {u"Alt-256", u""},
        {u"Alt-1000", u""},
        {u"Ctrl-", u""},
        {u"Ctrl", u""},
        {u"Meta-x", u""},
        {u" ", u""},
        {u"", u""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(KeyName(row.word).view(), row.name) << std::string(row.word.begin(), row.word.end());
    for (const KeyFunctionRow& row : aKeyFunctions) {
        const CString keys(row.keys);
        for (Word at = NextBlankWord(keys, 0); at.length > 0; at = NextBlankWord(keys, at.end()))
            EXPECT_EQ(KeyName(keys.view().substr(at.start, at.length)).view(),
                      keys.view().substr(at.start, at.length));
    }
}

TEST(KeyNames, KeysThatType)
{
    for (const std::u16string_view key : {u"A", u"Shift-A", u"Space", u"-"})
        EXPECT_TRUE(IsTypingKey(key));
    for (const std::u16string_view key : {u"Ctrl-A", u"Alt-Space", u"Shift-F1", u"Tab", u"Ctrl--"})
        EXPECT_FALSE(IsTypingKey(key));
}

} // namespace
