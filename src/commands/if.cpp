#include "commands/if.h"

#include "batch/iff_blocks.h"
#include "core/command_switches.h"
#include "engine/command_entry.h"
#include "engine/condition_entry.h"
#include "engine/results.h"
#include "engine/state.h"
#include "text/block_scanner.h"
#include "text/compare.h"
#include "text/words.h"

const CommandHelp ifHelp = {
    u"Runs a command if a condition holds.",
    u"IF [/I] [NOT] condition [.AND. | .OR. | .XOR. [NOT] condition ...] command\n"
    u"IF [/I] condition (commands) [ELSE (commands)]",
    u"/I  accepted for older scripts; comparisons mind no letter case anyway (but EQC does)\n"
    u"Comparisons: == EQ NE GT GE LT LE (also EQU NEQ GTR GEQ LSS LEQ), EQC, =~ and !~ for regular "
    u"expressions.\n"
    u"Tests: EXIST, ISFILE, ISDIR, ISREADABLE, ISWRITEABLE, ISSYMLINK, DEFINED, ISALIAS, ISFUNCTION, "
    u"ISINTERNAL, ISBATCH, ISLABEL, ISAPP, ISWINDOW, ISVISIBLE, ISHUNG, ERRORLEVEL n.\n"
    u"Conditions are joined from left to right, none binds tighter than another.",
    u"if exist notes.txt type notes.txt\n"
    u"if \"%1\"==\"\" goto usage\n"
    u"if %@len[%name] gt 8 .or. defined LONG (echo long) else (echo short)",
};

const CommandHelp iffHelp = {
    u"Begins a block of lines that runs if a condition holds.",
    u"IFF condition THEN\n"
    u"  commands\n"
    u"[ELSEIFF condition THEN\n"
    u"  commands]\n"
    u"[ELSE\n"
    u"  commands]\n"
    u"ENDIFF",
    u"Conditions are those of IF; a number alone holds when it is not 0.",
    u"iff %@files[*.txt] then\n"
    u"  echo some texts\n"
    u"else\n"
    u"  echo none\n"
    u"endiff",
};

namespace {

// A condition that does not hold is a failure: "||" behind the command sees it.
constexpr int notTrue = 2;

bool IsWord(std::u16string_view text, const Word& word, std::u16string_view name)
{
    return EqualNoCase(text.substr(word.start, word.length), name);
}

// Where the ELSE behind a block begins, which ends at `blockEnd`; npos when there is none. It may touch the
// parentheses.
std::size_t FindElse(std::u16string_view text, std::size_t blockEnd)
{
    constexpr std::u16string_view name = u"ELSE";
    const std::size_t at = text.find_first_not_of(u" \t\r\n", blockEnd + 1);
    if (at == text.npos || !EqualNoCase(text.substr(at, name.size()), name))
        return text.npos;
    const std::size_t behind = at + name.size();
    const bool whole =
        behind < text.size() && std::u16string_view(u" \t\r\n(").find(text[behind]) != text.npos;
    return whole ? at : text.npos;
}

int RunBranch(CString command, bool holds)
{
    return holds ? Command_S(command, line_flags::debugger) : notTrue;
}

int RunBlock(const CString& command, bool holds)
{
    const std::size_t blockEnd = FindBlockEnd(command, 0, CurrentSyntax());
    const std::size_t elseAt = blockEnd == CString::npos ? CString::npos : FindElse(command, blockEnd);
    if (elseAt == CString::npos)
        return RunBranch(command, holds);
    return RunBranch(holds ? command.Substr(0, elseAt) : command.Substr(elseAt + 4), true);
}

} // namespace

int If_Command(CString& arguments)
{
    CString text(arguments);
    // Other words that begin like a switch are what is compared: if /%name%/ == //.
    const char16_t ignoreCase[] = {CurrentSyntax().switchChar, u'I'};
    const Word first = NextWord(text, 0, CurrentSyntax());
    if (IsWord(text, first, std::u16string_view(ignoreCase, 2)))
        text.Erase(0, first.end());
    const int answer = TestCondition(text, ConditionMode::If);
    if (answer < 0)
        return UsageError();
    text.TrimLeft();
    if (text.front() == u'@')
        text.Erase(0, 1).TrimLeft();
    return text.front() == u'(' ? RunBlock(text, answer > 0) : RunBranch(text, answer > 0);
}

int Iff_Command(CString& arguments)
{
    const int answer = TestCondition(arguments, ConditionMode::Iff);
    const Word then = NextWord(arguments, 0, CurrentSyntax());
    if (answer < 0 || !IsWord(arguments, then, u"THEN") || !OpenIff(Tls().blocks, answer > 0))
        return UsageError();
    arguments.Erase(0, then.end()).TrimLeft();
    if (arguments.empty() || answer == 0)
        return result::handled;
    return Command_S(arguments, line_flags::debugger);
}
