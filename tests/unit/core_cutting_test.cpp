// Where lines are cut: blocks, separators, redirections.
#include <gtest/gtest.h>

#include <vector>

#include "core/redirection_parser.h"
#include "core/separators.h"
#include "lang/errors.h"
#include "text/block_scanner.h"
#include "text/encoding.h"

namespace {

TEST(Blocks, UnfinishedBlocks)
{
    const struct {
        const char16_t* text;
        bool open;
    } cases[] = {
        {u"if a==b (", true},
        {u"if a==b ( echo x )", false},
        {u"if a==b (\necho (foo^)\n", true},
        {u"if a==b (\necho (foo^)\n)", false},
        {u"if a==b (\necho (foo)\n) else (", true},
        {u"if a==b (\necho foo\n) else (\necho x\n)", false},
        {u"for %i in (a b) do (", true},
        {u"for %i in (a b) do echo x", false},
        {u"if a==b (\nrem it's ) not\n)", false},
        {u"if a==b (\n:: nor ) this\n", true},
        {u"(\n:: comment ( here\necho \"(\"\n)", false},
        {u"(echo a", true},
        {u"(echo \"a)\"", true},
        {u"(echo \"a\n)", false},
        {u"if %x%==(1) echo a", false},
        {u"echo (", false},
        {u"if exist x (if a==b (echo 1) else (echo 2))", false},
        {u"if exist x (if a==b (echo 1) else (echo 2)", true},
        {u"@if a==b (", true},
        {u"iff a==b then & (", true},
    };
    for (const auto& c : cases)
        EXPECT_EQ(EndsInsideBlock(c.text, Syntax()), c.open) << ToUtf8(c.text);
}

TEST(Blocks, TheEndOfABlock)
{
    const struct {
        const char16_t* text;
        std::size_t open;
        std::size_t end;
    } cases[] = {
        {u"(a (b) c) d", 0, 8},
        {u"((a) & (b)) d", 0, 10},
        {u"x (echo ^) y) z", 2, 12},
        {u"(rem )\n)", 0, 7},
        {u"(a", 0, std::u16string_view::npos},
    };
    for (const auto& c : cases)
        EXPECT_EQ(FindBlockEnd(c.text, c.open, Syntax()), c.end) << ToUtf8(c.text);
}

// The text cut into its commands; each connector follows its command as one of ; & | ! e (errors too).
std::string CutUp(std::u16string_view text, CommandShape shape, const Syntax& syntax)
{
    std::string shown;
    std::size_t from = 0;
    for (;;) {
        const Separator end = FindSeparator(text, from, shape, syntax);
        shown += "[" + ToUtf8(text.substr(from, end.at == text.npos ? text.npos : end.at - from)) + "]";
        if (end.connector == Connector::None)
            return shown;
        shown += " ;&!|e"[static_cast<int>(end.connector)];
        from = end.Behind();
    }
}

TEST(Separators, Commands)
{
    const struct {
        const char16_t* text;
        CommandShape shape;
        const char* cut;
    } cases[] = {
        {u"a&b", CommandShape::Plain, "[a];[b]"},
        {u"a && b || c | d", CommandShape::Plain, "[a ]&[ b ]![ c ]|[ d]"},
        {u"a ^& b & c", CommandShape::Plain, "[a ^& b ];[ c]"},
        {u"a \"&\" `&` & c", CommandShape::Plain, "[a \"&\" `&` ];[ c]"},
        {u"a \"^\" & c", CommandShape::Plain, "[a \"^\" ];[ c]"},
        {u"a 2>&1 & b >& f", CommandShape::Plain, "[a 2>&1 ];[ b >& f]"},
        {u"a %+ b", CommandShape::Plain, "[a ];[ b]"},
        {u"a %b% c", CommandShape::Plain, "[a %b% c]"},
        {u"a %b%+1 %+ c", CommandShape::Plain, "[a %b%+1 ];[ c]"},
        {u"a &| b", CommandShape::Plain, "[a ]e[ b]"},
        {u"a |& b", CommandShape::Plain, "[a ]e[ b]"},
        {u"a &|b", CommandShape::Plain, "[a ];[]|[b]"},
        {u"a\nb", CommandShape::Plain, "[a];[b]"},
        {u"(a & b) & c", CommandShape::Parentheses, "[(a & b) ];[ c]"},
        {u"(a & b & c", CommandShape::Parentheses, "[(a ];[ b ];[ c]"},
        {u"if x a && b || c & d", CommandShape::If, "[if x a && b || c ];[ d]"},
        {u"if x a | b", CommandShape::If, "[if x a ]|[ b]"},
        {u"echo (a & b)", CommandShape::Plain, "[echo (a ];[ b)]"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(CutUp(c.text, c.shape, Syntax()), c.cut) << ToUtf8(c.text);
}

TEST(Separators, OtherCharactersAndSwitches)
{
    Syntax own;
    own.commandSep = u'!';
    EXPECT_EQ(CutUp(u"a ! b & c && d", CommandShape::Plain, own), "[a ];[ b & c ]&[ d]");
    Syntax strict;
    strict.duplicateBugs = false;
    EXPECT_EQ(CutUp(u"if x a && b", CommandShape::If, strict), "[if x a ]&[ b]");
    Syntax cmd;
    cmd.openQuotes = true;
    EXPECT_EQ(CutUp(u"a \" & b", CommandShape::Plain, cmd), "[a \" & b]");
    EXPECT_EQ(CutUp(u"a ` & b", CommandShape::Plain, cmd), "[a ` ];[ b]");
    char16_t open = 0;
    FindSeparator(u"a \" & b", 0, CommandShape::Plain, Syntax(), &open);
    EXPECT_EQ(open, u'"');
}

std::string Describe(const RedirectionRequest& r)
{
    static const char* const kinds[] = {"<", "<<<", "<<", ">", ">>", "dup"};
    std::string text = std::to_string(r.handle) + kinds[static_cast<int>(r.kind)];
    if (r.kind == RedirectionKind::Duplicate)
        return text + std::to_string(r.source);
    text += r.errorToo ? "&" : "";
    text += r.overrideNoClobber ? "!" : "";
    text += r.stripBlanks ? "-" : "";
    return text + ToUtf8(r.name);
}

TEST(Redirections, Forms)
{
    const struct {
        const char16_t* command;
        const char16_t* left;
        std::vector<std::string> requests;
    } cases[] = {
        {u"a > f", u"a ", {"1>f"}},
        {u"a>f b", u"a b", {"1>f"}},
        {u"a >> f < g", u"a  ", {"1>>f", "0<g"}},
        {u"a >& f", u"a ", {"1>&f"}},
        {u"a >>& f", u"a ", {"1>>&f"}},
        {u"a >&> f", u"a ", {"2>f"}},
        {u"a >&>> f", u"a ", {"2>>f"}},
        {u"a 2> f", u"a ", {"2>f"}},
        {u"a2> f", u"a2", {"1>f"}},
        {u"2>f a", u" a", {"2>f"}},
        {u"a > f 2>&1", u"a  ", {"1>f", "2dup1"}},
        {u"a >&2", u"a ", {"1dup2"}},
        {u"a 1>&2 b", u"a  b", {"1dup2"}},
        {u"a >&2x", u"a ", {"1>&2x"}},
        {u"a >! f", u"a ", {"1>!f"}},
        {u"a > \"x y\" b", u"a  b", {"1>x y"}},
        {u"a > `x y`", u"a ", {"1>x y"}},
        {u"a > x^ y", u"a ", {"1>x y"}},
        {u"a \">\" ^> b", u"a \">\" ^> b", {}},
        {u"a <<< one two > x", u"a ", {"0<<<one two > x"}},
        {u"a << END", u"a ", {"0<<END"}},
        {u"a <<-\"END\" x", u"a  x", {"0<<-END"}},
        {u"a >nul 2>nul", u"a  ", {"1>nul", "2>nul"}},
    };
    for (const auto& c : cases) {
        CString command(c.command);
        std::vector<RedirectionRequest> requests;
        EXPECT_EQ(ParseRedirections(command, false, Syntax(), requests), 0u) << ToUtf8(c.command);
        EXPECT_EQ(ToUtf8(command), ToUtf8(c.left)) << ToUtf8(c.command);
        std::vector<std::string> described;
        for (const auto& request : requests)
            described.push_back(Describe(request));
        EXPECT_EQ(described, c.requests) << ToUtf8(c.command);
    }
}

TEST(Redirections, InsideAGroupTheyBelongToItsCommands)
{
    CString command(u"(a > f) > g");
    std::vector<RedirectionRequest> requests;
    EXPECT_EQ(ParseRedirections(command, true, Syntax(), requests), 0u);
    EXPECT_EQ(ToUtf8(command), "(a > f) ");
    ASSERT_EQ(requests.size(), 1u);
    EXPECT_EQ(ToUtf8(requests[0].name), "g");
}

TEST(Redirections, RefusedFormsLeaveTheCommandAlone)
{
    const CString tooLong = CString(u"a > ") + CString(40000, u'x');
    for (const CString& text :
         {CString(u"a >"), CString(u"a > > b"), CString(u"a <"), CString(u"a > `x"), tooLong}) {
        CString command(text);
        std::vector<RedirectionRequest> requests;
        EXPECT_EQ(ParseRedirections(command, false, Syntax(), requests), errors::syntax);
        EXPECT_EQ(command, text);
    }
}

} // namespace
