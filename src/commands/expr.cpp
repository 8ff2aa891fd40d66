#include "commands/expr.h"

#include "commands/expr_reader.h"
#include "core/command_switches.h"
#include "engine/output.h"
#include "engine/results.h"
#include "text/words.h"

const CommandHelp exprHelp = {
    u"Calculates with whole numbers and texts, and prints the answer.",
    u"EXPR expression",
    u"a | b   a, or b when a is empty or 0\n"
    u"a & b   a, or 0 when one of them is empty or 0\n"
    u"a < b   1 when it is true, else 0; also <=, =, ==, !=, >=, >. Numbers are compared as numbers\n"
    u"a + b   also -, *, / and %, on whole numbers of any size\n"
    u"a : b   how many characters of a the regular expression b takes from the start, or what its first \\( "
    u"\\) takes\n"
    u"match text regex             the same as text : regex\n"
    u"substr text place length     a part of the text; the first character has place 1\n"
    u"index text characters        the place of the first that is one of the characters, or 0\n"
    u"length text                  the number of characters\n"
    u"+ word                       the word, even if it is one of these\n"
    u"( expression )               first\n"
    u"Later lines bind tighter. Numbers, texts and operators are parted by blanks; |, &, < and > stand in "
    u"double quotes, and % is doubled in batch files. The result is 0, 1 when the answer is empty or 0, and "
    u"2 when the expression is wrong.",
    u"expr 7 * ( 3 + 4 )\n"
    u"expr length \"%path\"\n"
    u"expr report2026.txt : \"[a-z]*\\([0-9]*\\)\"\n"
    u"expr %n \">\" 5 && echo many",
};

int Expr_Command(CString& arguments)
{
    constexpr int nothing = 1;
    std::vector<CString> words;
    for (Word at = NextBlankWord(arguments, 0); at.length > 0; at = NextBlankWord(arguments, at.end()))
        words.push_back(WithoutQuotes(arguments.view().substr(at.start, at.length)));
    if (words.empty())
        return UsageError();
    const ExprAnswer answer = CalculateExpr(words);
    if (answer.error != 0)
        return MVError(answer.error, answer.culprit);
    if (!PrintLine(answer.value))
        return MVError(0);
    return IsNothing(answer.value) ? nothing : result::success;
}
