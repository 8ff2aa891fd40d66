#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "batch/for_header.h"
#include "batch/for_tokens.h"
#include "text/encoding.h"

namespace {

TEST(ForHeader, Forms)
{
    struct Case {
        const char16_t* text;
        const char16_t* switches; // D R L F as they were found
        const char16_t* root;
        const char16_t* options;
        const char16_t* variable;
        const char16_t* set;
        const char16_t* command;
    };
    const Case cases[] = {
        {u"%%i in (a b) do echo %%i", u"", u"", u"", u"i", u"a b", u"echo %%i"},
        {u"%i IN (*.txt) DO @echo %i", u"", u"", u"", u"i", u"*.txt", u"@echo %i"},
        {u"%%i in(a)do(echo x)", u"", u"", u"", u"i", u"a", u"(echo x)"},
        {u"/l %%n in (1,1,5) do (\necho x\n)", u"L", u"", u"", u"n", u"1,1,5", u"(\necho x\n)"},
        {u"/D /R \"%root%\\a b\" %%d in (*) do x", u"DR", u"\"%root%\\a b\"", u"", u"d", u"*", u"x"},
        {u"/r %%d in (.) do x", u"R", u"", u"", u"d", u".", u"x"},
        {u"/f \"tokens=1,2 delims=()\" %%a in ('dir /b \"(x)\"') do x", u"F", u"",
         u"\"tokens=1,2 delims=()\"", u"a", u"'dir /b \"(x)\"'", u"x"},
        {u"/F tokens^=1^ delims^=^\" %%a in (f) do x", u"F", u"", u"tokens^=1^ delims^=^\"", u"a", u"f",
         u"x"},
        {u"/f %opts% %%a in (f) do x", u"F", u"", u"%opts%", u"a", u"f", u"x"},
        {u"%file in (a (b) c) do x", u"", u"", u"", u"file", u"a (b) c", u"x"},
        {u"%%i in (\na\nb\n) do x", u"", u"", u"", u"i", u"\na\nb\n", u"x"},
    };
    for (const Case& one : cases) {
        ForHeader header;
        ASSERT_TRUE(ReadForHeader(one.text, Syntax(), header)) << ToUtf8(one.text);
        std::u16string switches;
        if (header.directories)
            switches += u'D';
        if (header.recursive)
            switches += u'R';
        if (header.counting)
            switches += u'L';
        if (header.parsing)
            switches += u'F';
        EXPECT_EQ(ToUtf8(switches), ToUtf8(one.switches)) << ToUtf8(one.text);
        EXPECT_EQ(ToUtf8(header.root), ToUtf8(one.root)) << ToUtf8(one.text);
        EXPECT_EQ(ToUtf8(header.options), ToUtf8(one.options)) << ToUtf8(one.text);
        EXPECT_EQ(ToUtf8(header.variable), ToUtf8(one.variable)) << ToUtf8(one.text);
        EXPECT_EQ(ToUtf8(header.set), ToUtf8(one.set)) << ToUtf8(one.text);
        EXPECT_EQ(ToUtf8(header.command), ToUtf8(one.command)) << ToUtf8(one.text);
    }
}

TEST(ForHeader, WhatIsNoFor)
{
    const char16_t* texts[] = {u"",
                               u"%%i",
                               u"%%i in",
                               u"%%i in (a",
                               u"%%i in (a) echo",
                               u"%%i in (a) do",
                               u"%%i on (a) do x",
                               u"i in (a) do x",
                               u"/q %%i in (a) do x",
                               u"%%i in (a) dox"};
    for (const char16_t* text : texts) {
        ForHeader header;
        EXPECT_FALSE(ReadForHeader(text, Syntax(), header)) << ToUtf8(text);
        EXPECT_EQ(header.refused.empty(), text[0] != u'/') << ToUtf8(text);
    }
}

TEST(ForHeader, EntriesOfSets)
{
    SetReader reader{u" a, \"b c\";d=e\n f\"g h\"i \"open j"};
    std::vector<std::string> entries;
    for (std::u16string_view entry; reader.Next(entry);)
        entries.push_back(ToUtf8(entry));
    EXPECT_EQ(entries, (std::vector<std::string>{"a", "\"b c\"", "d", "e", "f\"g h\"i", "\"open j"}));
}

struct CutCase {
    const char16_t* options;
    const char16_t* line;
    std::vector<std::string> values; // none: the line is passed over
};

TEST(ForTokens, Cutting)
{
    const CutCase cases[] = {
        {u"", u"  one two", {"one"}},
        {u"tokens=2", u"one two three", {"two"}},
        {u"tokens=2", u"one", {}},
        {u"tokens=1,2", u"one", {"one", ""}},
        {u"tokens=3,1", u"a b c", {"a", "c"}},
        {u"tokens=1-3", u"a b c d", {"a", "b", "c"}},
        {u"tokens=1*", u"a   b  c ", {"a", "b  c "}},
        {u"tokens=1,*", u"a b c", {"a", "b c"}},
        {u"tokens=*", u"  a b ", {"a b "}},
        {u"tokens=* delims=", u"  a b ", {"  a b "}},
        {u"delims=", u" a b", {" a b"}},
        {u"delims=, tokens=1,2", u"a b,,c", {"a b", "c"}},
        {u"tokens=1,2 delims=, ", u"a b,c", {"a", "b"}},
        {u"delims==", u"name=value", {"name"}},
        {u"", u"; comment", {}},
        {u"eol=#", u"; a", {";"}},
        {u"eol=# tokens=1", u"# a", {}},
        {u"eol= ", u"; a", {";"}},
        {u"", u"", {}},
        {u"", u"   ", {}},
        {u"TOKENS=2 DELIMS=xX", u"aXbXc", {"b"}},
    };
    for (const CutCase& one : cases) {
        ForOptions options;
        ASSERT_TRUE(ReadForOptions(one.options, options)) << ToUtf8(one.options);
        std::vector<std::u16string_view> values;
        const bool cut = CutForLine(one.line, options, values);
        EXPECT_EQ(cut, !one.values.empty()) << ToUtf8(one.options) << ": " << ToUtf8(one.line);
        std::vector<std::string> narrow;
        for (const auto value : values)
            narrow.push_back(ToUtf8(value));
        if (cut) {
            EXPECT_EQ(narrow, one.values) << ToUtf8(one.options) << ": " << ToUtf8(one.line);
        }
    }
}

TEST(ForTokens, Options)
{
    ForOptions options;
    EXPECT_TRUE(ReadForOptions(u" usebackq skip=3 eol=", options));
    EXPECT_TRUE(options.backQuotes);
    EXPECT_EQ(options.skip, 3u);
    EXPECT_EQ(options.comment, 0);
    const char16_t* wrong[] = {u"token=1", u"tokens=",  u"tokens=0",  u"tokens=32", u"tokens=x",
                               u"skip=0",  u"skip=abc", u"tokens=*2", u"x",         u"tokens=1-"};
    for (const char16_t* text : wrong) {
        ForOptions refused;
        EXPECT_FALSE(ReadForOptions(text, refused)) << ToUtf8(text);
    }
}

} // namespace
