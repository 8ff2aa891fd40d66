#include <gtest/gtest.h>

#include <cstdio>

#include "engine/state.h"
#include "lang/errors.h"
#include "tests/unit/fake_expansion_world.h"
#include "text/encoding.h"

namespace {

struct Case {
    const char16_t* line;
    const char16_t* expected;
};

FakeExpansionWorld MakeWorld()
{
    FakeExpansionWorld world;
    world.environment = {
        {u"a", u"one"},
        {u"b", u"two words"},
        {u"empty_", u""},
        {u"c1", u"%a"},
        {u"path", u"C:\\x"},
        {u"abc", u"ABCDEF"},
        {u"q", u"\""},
        {u"pct", u"50%"},
        {u"n", u"2"},
        {u"my var", u"spaced"},
        {u"list[1]", u"first"},
        {u"a.b", u"dotted"},
        {u"cmd", u"ls"},
        {u"_x", u"under"},
        {u"$d", u"dollar"},
        {u"s", u"a\"b"},
        {u"ProgramFiles(x86)", u"PF86"},
        {u"Mine(x86)", u"M86"},
        {u"ProgramFiles", u"PF"},
        {u"list", u"LIST"},
    };
    world.computed = {
        {u"?", u"7"}, {u"_?", u"8"}, {u"!", u"last"}, {u"_date", u"today"}, {u"ERRORLEVEL", u"7"}};
    return world;
}

void Check(FakeExpansionWorld& world, const Case& test, bool nested = false)
{
    CString line(test.line);
    EXPECT_EQ(VariableExpansion(line, nested, world), 0) << ToUtf8(test.line) << " -> " << ToUtf8(line);
    EXPECT_EQ(ToUtf8(line), ToUtf8(test.expected)) << "from " << ToUtf8(test.line);
    EXPECT_EQ(world.progress.depth, 0);
}

template <std::size_t n> void CheckAll(FakeExpansionWorld& world, const Case (&cases)[n], bool nested = false)
{
    for (const Case& test : cases)
        Check(world, test, nested);
}

void CheckError(FakeExpansionWorld& world, const char16_t* text, unsigned code)
{
    world.reported.clear();
    CString line(text);
    EXPECT_EQ(static_cast<unsigned>(VariableExpansion(line, false, world)), code) << ToUtf8(text);
    EXPECT_EQ(world.reported, std::vector<unsigned>{code}) << ToUtf8(text);
    EXPECT_EQ(world.progress.depth, 0);
}

TEST(Expansion, NamesAndLiteralPercents)
{
    FakeExpansionWorld world = MakeWorld();
    const Case cases[] = {
        {u"", u""},
        {u"plain text", u"plain text"},
        {u"echo %a%", u"echo one"},
        {u"echo %A", u"echo one"},
        {u"%a%%a%", u"oneone"},
        {u"x%a.txt", u"xone.txt"},
        {u"%a-%b", u"one-two words"},
        {u"%a%b", u"oneb"},
        {u"[%undefined%]", u"[]"},
        {u"[%undefined]", u"[]"},
        {u"%empty_%.", u"."},
        {u"100%", u"100%"},
        {u"100% sure", u"100% sure"},
        {u"100%\tx", u"100%\tx"},
        {u"100%% sure", u"100% sure"},
        {u"100%%", u"100%"},
        {u"%%a%%", u"%a%"},
        {u"%%%a%", u"%one"},
        {u"%,x", u"%,x"},
        {u"%\"a\"", u"%\"a\""},
        {u"%=x", u"%=x"},
        {u"%@1[x]", u"%@1[x]"},
        {u"a@b.c", u"a@b.c"},
        {u"%_x%", u"under"},
        {u"%$d%", u"dollar"},
        {u"%path%\\y", u"C:\\x\\y"},
        {u"%path\\%a", u"C:\\x\\one"},
        {u"%c1%", u"one"},
        {u"%_date", u"today"},
        {u"%? %_? %! %#", u"7 8 last 0"},
        {u"%errorlevel%", u"7"},
        {u"a%+b", u"a&b"},
        {u"%ProgramFiles(x86)%\\x", u"PF86\\x"},
        {u"%ProgramFiles(x86)\\x", u"PF86\\x"},
        {u"%programfiles%(x86)", u"PF(x86)"},
        {u"%ProgramFiles(x86)y", u"PF(x86)y"},
        {u"%mine(x86)%", u"M86"},
        {u"%mine(x86)", u"(x86)"},
        {u"%a(x)", u"one(x)"},
    };
    CheckAll(world, cases);
    CheckAll(world, cases, true);
}

TEST(Expansion, QuotesAndEscapes)
{
    FakeExpansionWorld world = MakeWorld();
    const Case cases[] = {
        {u"`%a%` %a", u"`%a%` one"},
        {u"\"%a%\"", u"\"one\""},
        {u"^%a% %a", u"^%a% one"},
        {u"\"^%a%\"", u"\"^one\""},
        {u"^^%a%", u"^^one"},
        {u"\"x\" ^%a", u"\"x\" ^%a"},
        {u"(echo %a) %a", u"(echo %a) one"},
        {u"(echo \")\" %a) %a", u"(echo \")\" %a) one"},
        {u"(echo %a", u"(echo %a"},
        {u"echo (%a)", u"echo (one)"},
    };
    CheckAll(world, cases);
    CheckError(world, u"echo \"x", errors::unclosedQuote);
    CheckError(world, u"echo `x", errors::unclosedQuote);
    CheckError(world, u"echo \"a\" \"%a%", errors::unclosedQuote);
    world.settings.syntax.openQuotes = true;
    Check(world, {u"echo \"%a%", u"echo \"one"});
    Check(world, {u"echo it`s %a%", u"echo it`s one"});
    world.settings.syntax.escapes = false;
    Check(world, {u"^%a%", u"^one"});
}

// A piece of a line may hold half of a pair of quotes.
TEST(Expansion, NestedTextIsNotTestedForQuotes)
{
    FakeExpansionWorld world = MakeWorld();
    Check(world, {u"\"%a%", u"\"one"}, true);
    Check(world, {u"(%a%)", u"(one)"}, true);
    Check(world, {u"`%a%", u"`one"}, true);
}

TEST(Expansion, Modifiers)
{
    FakeExpansionWorld world = MakeWorld();
    const Case cases[] = {
        {u"%abc:~2%", u"CDEF"},
        {u"%abc:~0,3%", u"ABC"},
        {u"%abc:~-3%", u"DEF"},
        {u"%abc:~2,-1%", u"CDE"},
        {u"%abc:~,2%", u"AB"},
        {u"%abc:~-100,2%", u"AB"},
        {u"%abc:~100%.", u"."},
        {u"%abc:~2,100%", u"CDEF"},
        {u"%abc:~2,-100%.", u"."},
        {u"%abc:~0,0%.", u"."},
        {u"%abc:~-3,-1%", u"DE"},
        {u"%abc:~99999999999999999999%.", u"."},
        {u"%abc:~%", u"ABCDEF"},
        {u"%abc:cd=x%", u"ABxEF"},
        {u"%abc:cd=%", u"ABEF"},
        {u"%abc:zz=x%", u"ABCDEF"},
        {u"%abc:*cd=x%", u"xEF"},
        {u"%abc:*zz=x%", u"ABCDEF"},
        {u"%abc:b=bb%", u"AbbCDEF"},
        {u"%abc:junk%", u"ABCDEF"},
        {u"%abc:DEF=^%%", u"ABC%"},
        {u"%s:\"=%", u"ab"},
        {u"%undefined:~0,3%.", u"."},
        {u"%undefined:a=b%.", u"."},
        // Not closed, or on the road to another reference.
        {u"%abc:~2", u"ABCDEF:~2"},
        {u"%n:\\dir\\%a", u"2:\\dir\\one"},
        {u"%a: %b", u"one: two words"},
        {u"%n:%a", u"2:one"},
        {u"%path:\\=/%", u"C:/x"},
    };
    world.settings.syntax.openQuotes = false;
    CheckAll(world, cases, true);
    CheckError(world, u"%abc:=x%", errors::syntax);
    EXPECT_EQ(ToUtf8(world.lastReport), ":=x");
    CheckError(world, u"%abc:*=x%", errors::syntax);
}

TEST(Expansion, CmdVariablesRunToTheNextPercent)
{
    FakeExpansionWorld world = MakeWorld();
    world.settings.cmdVariables = true;
    const Case cases[] = {
        {u"%my var%", u"spaced"}, {u"%a.b%", u"dotted"},  {u"%a", u"%a"},
        {u"%a.x%.", u"."},        {u"%abc:~1,2%", u"BC"}, {u"%list[1]%", u"first"},
        {u"50%off", u"50%off"},   {u"%%a%%", u"%a%"},     {u"%my var:s=S%", u"Spaced"},
    };
    CheckAll(world, cases);
}

TEST(Expansion, EverydayBatchNames)
{
    FakeExpansionWorld world = MakeWorld();
    world.settings.syntax.openQuotes = true;
    const Case cases[] = {
        {u"%my var%", u"spaced"},
        {u"%list[1]%", u"first"},
        {u"[%list[2]%]", u"[]"},
        {u"%a.b%", u"dotted"},
        {u"%a.c%.", u"."},
        {u"%a.b:d=D%", u"DotteD"},
        {u"%path\\%a%", u"C:\\x\\one"},
        {u"%a%b%", u"oneb%"},
        {u"%abc:~0,3%", u"ABC"},
        {u"if \"%list[2]%\"==\"\" x", u"if \"\"==\"\" x"},
        {u"%a and%", u"one and%"},
    };
    CheckAll(world, cases);
}

TEST(Expansion, ValuesAreScannedAgain)
{
    FakeExpansionWorld world = MakeWorld();
    world.environment[u"v1"] = u"<%v2%>";
    world.environment[u"v2"] = u"[%a%]";
    world.environment[u"half"] = u"%a";
    Check(world, {u"%v1% %v1%", u"<[one]> <[one]>"});
    Check(world, {u"%half%bc%", u"ABCDEF"}); // the value and what follows it make a new reference
    Check(world, {u"%pct% of", u"50% of"});
    world.settings.mask = expansion_mask::valuesNotRescanned;
    Check(world, {u"%v1% %a%", u"<%v2%> one"});
}

TEST(Expansion, LoopsAreRefused)
{
    FakeExpansionWorld world = MakeWorld();
    world.environment[u"self"] = u"%self%";
    world.environment[u"grow"] = u"x%grow%";
    world.environment[u"ping"] = u"%pong%";
    world.environment[u"pong"] = u"%ping%";
    world.environment[u"tail"] = u"%tail%y";
    CheckError(world, u"%self%", errors::variableLoop);
    CheckError(world, u"%ping%", errors::variableLoop);
    CheckError(world, u"%grow%", errors::variableLoop);
    CheckError(world, u"%tail%", errors::variableLoop);
    // Seventeen values in a row at one place are no loop when the line gets shorter all the time.
    CString many;
    for (int i = 0; i < 40; ++i)
        many += u"%nothing%";
    Check(world, {many.c_str(), u""});
    // A chain of 17 values passes, one of 18 does not.
    for (int i = 0; i < 30; ++i) {
        const CString name = Format(u"chain%d", i);
        world.environment[std::u16string(name.view())] = std::u16string(Format(u"%%chain%d%%", i + 1).view());
    }
    world.environment[u"chain17"] = u"end";
    Check(world, {u"%chain1%", u"end"});
    CheckError(world, u"%chain0%", errors::variableLoop);
}

TEST(Expansion, DoublingValuesStopSoon)
{
    FakeExpansionWorld world = MakeWorld();
    for (int i = 0; i < 60; ++i) {
        const CString name = Format(u"d%d", i);
        world.environment[std::u16string(name.view())] =
            std::u16string(Format(u"%%d%d%%%%d%d%%", i + 1, i + 1).view());
    }
    CString line(u"%d0%");
    EXPECT_NE(VariableExpansion(line, false, world), 0);
    world.environment[u"big"] = std::u16string(60000, u'x');
    world.environment[u"bigger"] =
        u"%big%%big%%big%%big%%big%%big%%big%%big%%big%%big%%big%%big%%big%%big%%big%";
    CheckError(world, u"%bigger%%bigger%", errors::lineTooLong);
}

TEST(Expansion, Functions)
{
    FakeExpansionWorld world = MakeWorld();
    const Case cases[] = {
        {u"%@upper[abc]", u"ABC"},
        {u"x%@upper[%a%]y", u"xONEy"},
        {u"%@len[abc]", u"3"},
        {u"%@len[a[b]c]", u"5"},
        {u"%@show[a[b]c]", u"<show:a[b]c>"},
        {u"%@show[`]`]", u"<show:`]`>"},
        {u"%@show[]", u"<show:>"},
        {u"%@upper[%@upper[%@upper[a]]]", u"A"},
        {u"%@*upper[a]", u"<*upper:a>"},
        {u"%@eval[1+2]", u"3"},
        {u"%@eval[%n+%@len[abc]]", u"5"},
        {u"%@never[%%a]", u"%a"},
        {u"%@again[%%a%%]", u"one"},
        {u"%@show[%%a%%]", u"<show:one>"},
        {u"%(dir /b)", u"<exec:dir /b>"},
        {u"%(echo %a)", u"<exec:echo one>"},
        {u"%((x)(y))", u"<exec:(x)(y)>"},
        {u"%{dir {x} %a}", u"<execstr:dir {x} one>"},
        {u"%((1+2))", u"3"},
        {u"%[[a==a]] %[[%a==two]]", u"0 1"},
        {u"%@regex[^[a-z]+$,x]", u"<regex:^[a-z]+$,x>"},
        {u"%@regexsub[[[],x] y", u"<regexsub:[[],x> y"},
    };
    CheckAll(world, cases);
    world.settings.mask = expansion_mask::resultsNotRescanned;
    Check(world, {u"%@again[%%a%%]", u"%a%"});
    Check(world, {u"%@show[%%a%%]", u"<show:one>"});
    world.settings.mask = expansion_mask::valuesNotRescanned;
    Check(world, {u"%@show[%%a%%]", u"<show:%a%>"});
}

TEST(Expansion, FunctionErrors)
{
    FakeExpansionWorld world = MakeWorld();
    CheckError(world, u"%@upper abc", errors::syntax);
    EXPECT_EQ(ToUtf8(world.lastReport), "@upper abc");
    CheckError(world, u"%@upper[abc", errors::syntax);
    CheckError(world, u"%@aname_of_more_than_31_characters_x[1]", errors::syntax);
    CheckError(world, u"%(dir", errors::syntax);
    CheckError(world, u"%[[a", errors::syntax);
    CheckError(world, u"%@fail[x,y]", 87);
    EXPECT_EQ(ToUtf8(world.lastReport), "%@fail[x,y]");
    world.reported.clear();
    CString line(u"%@silent[x]");
    EXPECT_EQ(VariableExpansion(line, false, world), 5);
    EXPECT_TRUE(world.reported.empty());
    // The line is left as far as it was rewritten.
    line = u"%a% %@fail[x] %a%";
    EXPECT_EQ(VariableExpansion(line, false, world), 87);
    EXPECT_EQ(ToUtf8(line), "one %@fail[x] %a%");
    // A condition that cannot be read is told and counts as "does not hold".
    world.reported.clear();
    line = u"%[[what]]";
    EXPECT_EQ(VariableExpansion(line, false, world), 0);
    EXPECT_EQ(ToUtf8(line), "0");
    EXPECT_EQ(world.reported, std::vector<unsigned>{errors::syntax});
}

TEST(Expansion, NestingIsLimited)
{
    FakeExpansionWorld world = MakeWorld();
    auto nest = [](int levels) {
        CString text(u"%a");
        for (int i = 0; i < levels; ++i)
            text = Format(u"%%@upper[%s]", text);
        return text;
    };
    Check(world, {nest(20).c_str(), u"ONE"});
    CheckError(world, nest(21).c_str(), errors::variableLoop);
}

TEST(Expansion, FunctionBodies)
{
    FakeExpansionWorld world = MakeWorld();
    const Case cases[] = {
        {u"%@body[<$1>|x]", u"<x>"}, {u"%@body[<$@upper[$1]>|x]", u"<X>"}, {u"%@body[$#|x]", u"1"},
        {u"%@body[$*|x y]", u"x y"}, {u"%@body[$~1|\"x y\"]", u"x y"},     {u"%@body[<$2>|x]", u"<>"},
    };
    CheckAll(world, cases);
    world.environment[u"rec"] = u"%@body[$rec|x]";
    CString line(u"%rec");
    EXPECT_NE(VariableExpansion(line, false, world), 0);
    EXPECT_EQ(world.progress.depth, 0);
}

TEST(Expansion, Arrays)
{
    FakeExpansionWorld world = MakeWorld();
    world.array = {u"zero", u"eins", u"%a"};
    const Case cases[] = {
        {u"%arr[0]", u"zero"},   {u"%ARR[1]%.", u"eins."},     {u"%arr[2]", u"one"},
        {u"%arr[1+0]", u"eins"}, {u"%arr[%@len[x]]", u"eins"}, {u"%a[0]", u"one[0]"},
    };
    CheckAll(world, cases);
    CheckError(world, u"%arr[3]", errors::arrayIndex);
    CheckError(world, u"%arr[-1]", errors::arrayIndex);
    CheckError(world, u"%arr[]", errors::arrayIndex);
    CheckError(world, u"%arr[1", errors::arrayIndex);
    CheckError(world, u"%arr[x]", errors::syntax);
}

TEST(Expansion, BatchParameters)
{
    FakeExpansionWorld world = MakeWorld();
    world.batch = {u"C:\\dir\\my.file.cmd", u"one", u"\"two words\"", u"three"};
    world.batchText = u" one   \"two words\" three";
    const Case cases[] = {
        {u"%0", u"C:\\dir\\my.file.cmd"},
        {u"%1%2", u"one\"two words\""},
        {u"[%4]", u"[]"},
        {u"%12", u""},
        {u"%*", u"one   \"two words\" three"},
        {u"%*]", u"%*]"},
        {u"(%*)", u"(%*)"}, // a group: its commands are expanded when they run
        {u"x (%*)", u"x (one   \"two words\" three)"},
        {u"%#", u"3"},
        {u"%2$", u"\"two words\" three"},
        {u"%$", u"one   \"two words\" three"},
        {u"%-2$", u"one   \"two words\""},
        {u"[%5$]", u"[]"},
        {u"%1a", u"onea"},
        {u"%1%", u"one%"},
        {u"%~2", u"two words"},
        {u"%~dp0", u"C:\\dir\\"},
        {u"%~nx0", u"my.file.cmd"},
        {u"%~n0 %~x0", u"my.file .cmd"},
        {u"%~f1", u"C:\\work\\one"},
        {u"%~s0", u"SHORT(C:\\dir\\my.file.cmd)"},
        {u"[%~f9]", u"[]"},
        {u"%~", u"%~"},
        {u"%~q", u"%~q"},
        {u"[%~$nolist:1]", u"[]"},
    };
    CheckAll(world, cases);
    world.files[u"C:\\dir\\my.file.cmd"] = u"12";
    world.files[u"C:\\bin\\one"] = u"5";
    Check(world, {u"%~z0", u"12"});
    Check(world, {u"%~aztn0", u"--a------ 2026-11-21 10:00 12 my.file"});
    Check(world, {u"[%~z1]", u"[]"});
    Check(world, {u"%~dp$bin:1", u"C:\\bin\\"});

    world.shift = 1;
    Check(world, {u"%0 %1 %# %* %2$", u"one \"two words\" 2 \"two words\" three three"});
    // The everyday kind of batch file keeps %* and knows it before any character.
    world.settings.syntax.openQuotes = true;
    Check(world, {u"[%*]", u"[one   \"two words\" three]"});
    // SHIFT may have taken entries out of the middle: then the text no longer tells.
    world.settings.syntax.openQuotes = false;
    world.shift = 0;
    world.batch.erase(world.batch.begin() + 2);
    Check(world, {u"%*", u"one three"});
}

TEST(Expansion, ParametersOutsideBatchFiles)
{
    FakeExpansionWorld world = MakeWorld();
    Check(world, {u"[%1] [%*] %# %~dp0", u"[] [%*] 0 %~dp0"});
}

TEST(Expansion, LoopVariables)
{
    FakeExpansionWorld world = MakeWorld();
    world.loops = {{u'i', u"C:\\x\\y.z"}, {u'x', u"ex"}, {u'n', u"%a"}};
    const Case cases[] = {
        {u"%%i", u"C:\\x\\y.z"},
        {u"%%i%%x", u"C:\\x\\y.zex"},
        {u"%%ix", u"C:\\x\\y.zx"},
        {u"%%~ni", u"y"},
        {u"%%~nxi", u"y.z"},
        {u"%%~nx", u"ex"}, // the name of x, not name and extension of nothing
        {u"%%~i", u"C:\\x\\y.z"},
        {u"%%~dpi!", u"C:\\x\\!"},
        {u"%%j", u"%j"},
        {u"%%~qj", u"%~qj"},
        {u"%i", u"C:\\x\\y.z"},
        {u"%i%x", u"C:\\x\\y.zex"},
        {u"%~xi", u".z"},
        {u"%n", u"one"},  // the loop hides the variable of that name ...
        {u"%n%", u"2"},   // ... unless the reference is closed
        {u"%%n", u"one"}, // values are scanned again
    };
    CheckAll(world, cases);
    world.settings.cmdVariables = true;
    Check(world, {u"echo %i.txt", u"echo C:\\x\\y.z.txt"});
    // Everyday scripts take such values for text, whatever signs are in it.
    world.settings.cmdVariables = false;
    world.settings.syntax.openQuotes = true;
    world.loops[u's'] = u"50%a & \"b & c\".txt";
    Check(world, {u"%%s%%n %%~xs", u"50%a ^& \"b & c\".txt%a .txt"});
    Check(world, {u"\"%%s", u"\"50%a & \"b ^& c\".txt"});
    Check(world, {u"%%s", u"50%a & \"b & c\".txt"}, true);
}

TEST(Expansion, SubroutineParametersComeFirst)
{
    FakeExpansionWorld world = MakeWorld();
    world.subroutine = {{u"a", u"parameter"}};
    Check(world, {u"%a% %abc%", u"parameter ABCDEF"});
}

TEST(Expansion, DelayedReferences)
{
    FakeExpansionWorld world = MakeWorld();
    Check(world, {u"!a!", u"!a!"});
    world.settings.delayedExpansion = true;
    const Case cases[] = {
        {u"!a!", u"one"},           {u"echo Hello!", u"echo Hello!"},
        {u"a! b!", u"a! b!"},       {u"!abc:~0,2!", u"AB"},
        {u"!a:o=0!", u"0ne"},       {u"!c:\\x!", u"!c:\\x!"},
        {u"!abc:~%n%,1!", u"C"},    {u"!undefined!.", u"."},
        {u"`!a!`", u"`!a!`"},       {u"^!a!", u"^!a!"},
        {u"\"^!a!\"", u"\"^one\""}, {u"!a!!b!", u"onetwo words"},
        {u"!_x!", u"under"},
    };
    CheckAll(world, cases);
    world.environment[u"which"] = u"abc";
    Check(world, {u"!%which%!", u"ABCDEF"});
    world.settings.syntax.openQuotes = true;
    Check(world, {u"!list[1]! !list[%n%]!.", u"first ."});
    Check(world, {u"!a.b! !my var!", u"dotted spaced"});
    // In scripts of the older kind values are text, and "!" is escaped outside and inside of quotes.
    world.environment[u"signs"] = u"a&b <c> \"d|e\" ^f";
    Check(world, {u"echo !signs!&x", u"echo a^&b ^<c^> \"d|e\" ^^f&x"});
    Check(world, {u"^^!a^^! \"^!a^! !a!\"", u"^!a^! \"!a! one\""});
}

TEST(Expansion, PseudoVariables)
{
    FakeExpansionWorld world = MakeWorld();
    world.settings.pseudoVariables = true;
    Check(world, {u"a%=&b", u"a^&b"});
    Check(world, {u"a%%=b", u"a%=b"});
    world.settings.mask = expansion_mask::noPseudoVariables;
    Check(world, {u"a%=b", u"a%=b"});
}

TEST(Expansion, AliasesOfAnExpandedFirstWord)
{
    FakeExpansionWorld world = MakeWorld();
    world.aliases = {{u"ls", u"dir /w %a%"}, {u"onels", u"found"}};
    Check(world, {u"%cmd% x", u"dir /w one x"});
    Check(world, {u"%a%%cmd%", u"found"});
    Check(world, {u"echo %cmd%", u"echo ls"});
    Check(world, {u"x%cmd% y", u"xls y"});
    world.aliases[u"loop"] = u"%looper";
    world.environment[u"looper"] = u"loop";
    CString line(u"%looper");
    EXPECT_NE(VariableExpansion(line, false, world), 0);
}

TEST(Expansion, EndLocalIsMarked)
{
    FakeExpansionWorld world = MakeWorld();
    Check(world, {u"echo %a", u"echo one"});
    EXPECT_FALSE(world.sawEndLocal);
    Check(world, {u"EndLocal & set x=%a", u"EndLocal & set x=one"});
    EXPECT_TRUE(world.sawEndLocal);
    EXPECT_FALSE(world.endLocal);
}

TEST(Expansion, LongNamesAreCut)
{
    FakeExpansionWorld world = MakeWorld();
    const std::u16string name(1023, u'n');
    world.environment[name] = u"long";
    Check(world, {(u"%" + name + u"%").c_str(), u"long"});
    Check(world, {(u"%" + name + u"nnn%").c_str(), u"long"});
}

TEST(Expansion, ManyReferencesInOneLine)
{
    FakeExpansionWorld world = MakeWorld();
    CString line;
    CString expected;
    for (int i = 0; i < 20000; ++i) {
        line += u"%a%,";
        expected += u"one,";
    }
    Check(world, {line.c_str(), expected.c_str()});
}

} // namespace
