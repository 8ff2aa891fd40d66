#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "batch/iff_blocks.h"

namespace {

// Runs a script of one command per word: "T"/"F" are IFF with a true or false condition, "t"/"f" ELSEIFF, "|"
// ELSE, "." ENDIFF; any other letter is a command. Answers the commands that ran.
std::string Ran(std::string_view script, BlockState blocks = {}, int* conditionsTested = nullptr)
{
    std::string ran;
    for (const char c : script) {
        BlockWord word = BlockWord::None;
        if (c == 'T' || c == 'F')
            word = BlockWord::Iff;
        else if (c == 't' || c == 'f')
            word = BlockWord::ElseIff;
        else if (c == '|')
            word = BlockWord::Else;
        else if (c == '.')
            word = BlockWord::EndIff;
        const BlockStep step = ActOnBlockWord(blocks, word, [&] {
            if (conditionsTested)
                ++*conditionsTested;
            return c == 't';
        });
        if (step == BlockStep::Run && word == BlockWord::Iff)
            OpenIff(blocks, c == 'T');
        else if (step == BlockStep::Run)
            ran.push_back(c);
    }
    EXPECT_EQ(blocks.iffNesting, 0) << script;
    EXPECT_EQ(blocks.iffSkipped, 0) << script;
    return ran;
}

TEST(IffBlocks, OneBranchOfEachLevelRuns)
{
    const std::string_view cases[][2] = {
        {"aTb.c", "abc"},       {"aFb.c", "ac"},        {"Ta|b.", "a"},           {"Fa|b.", "b"},
        {"Tatb|c.", "a"},       {"Fatb|c.", "b"},       {"Fafb|c.", "c"},         {"Fafbtctd|e.", "c"},
        {"TFa|b.|c.", "b"},     {"FTa|b.|c.", "c"},     {"FFatb|c.td|e.f", "df"}, {"TTatb|c.td|e.f", "af"},
        {"FTa.|Fb|c..d", "cd"}, {"TFFa|b.c.d.e", "de"}, {"FFFa.b.c|d.", "d"},     {"TaFb..c", "ac"},
    };
    for (const auto& one : cases)
        EXPECT_EQ(Ran(one[0]), one[1]) << one[0];
}

TEST(IffBlocks, ConditionsAreTestedOnlyWhereTheyCount)
{
    int tested = 0;
    Ran("Tatb|c.", {}, &tested);
    EXPECT_EQ(tested, 0);
    Ran("FTatb.td.", {}, &tested);
    EXPECT_EQ(tested, 1);
}

TEST(IffBlocks, DeepNesting)
{
    // Deeper than there are bits for taken branches, each level with an ELSE behind the inner block.
    constexpr int depth = 100;
    std::string script;
    std::string expected;
    for (int i = 0; i < depth; ++i)
        script += i % 10 == 9 ? "Fx|" : "Ta";
    script += 'm';
    for (int i = 0; i < depth; ++i)
        script += i % 10 == 0 ? "." : "|y.";
    for (int i = 0; i < depth; ++i)
        expected += i % 10 == 9 ? "" : "a";
    expected += 'm';
    EXPECT_EQ(Ran(script), expected);
}

TEST(IffBlocks, StrayWordsAreOrdinaryCommands) { EXPECT_EQ(Ran("a|b.ctd"), "a|b.ctd"); }

TEST(IffBlocks, WholeWordsOnly)
{
    std::size_t end = 0;
    const std::u16string_view words[] = {u"else",   u"ELSE",   u"  @else",   u"else & x",
                                         u"else\n", u"else(x", u"else,more", u"else|x"};
    for (const auto word : words)
        EXPECT_EQ(ReadBlockWord(word, end), BlockWord::Else);
    const std::u16string_view others[] = {u"elsewhere", u"else.exe", u"else_1", u"els",
                                          u"",          u"  ",       u"x else", u"else\\a"};
    for (const auto word : others)
        EXPECT_EQ(ReadBlockWord(word, end), BlockWord::None);
    EXPECT_EQ(ReadBlockWord(u"elseiff 1", end), BlockWord::ElseIff);
    EXPECT_EQ(end, 7u);
    EXPECT_EQ(ReadBlockWord(u"endiff", end), BlockWord::EndIff);
    EXPECT_EQ(ReadBlockWord(u"iff 1", end), BlockWord::Iff);
    EXPECT_EQ(ReadBlockWord(u"if 1", end), BlockWord::None);
}

} // namespace
