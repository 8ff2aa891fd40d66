#include "commands/help_syntax.h"

#include "commands/help_text.h"
#include "text/compare.h"

bool IsSyntaxWord(std::u16string_view word)
{
    for (const std::u16string_view name : {u"syntax", u"line", u"lines", u"operators", u"redirection",
                                           u"pipe", u"pipes", u"quotes", u"escape", u"wildcards"})
        if (EqualNoCase(word, name))
            return true;
    return false;
}

CString SyntaxPage(int width)
{
    CString text = HelpParagraph(
        u"How lines are written. The settings CommandSep, EscapeChar and ParameterChar choose other "
        u"characters for &, ^ and $.",
        width);
    AppendHelpSection(text, u"Several commands",
                      u"a & b     one after the other\n"
                      u"a && b    b only when a has succeeded\n"
                      u"a || b    b only when a has failed\n"
                      u"(a & b)   a group, which may be redirected and may run over several lines\n"
                      u"a | b     b reads what a writes; a |& b takes the errors, too\n"
                      u"a &       with nothing behind it: a runs beside the shell, and is not waited for\n"
                      u"@a        in a batch file: the line is not shown\n"
                      u"*a        the command a, not an alias of that name",
                      width);
    AppendHelpSection(text, u"Redirection",
                      u"a > file     what a writes goes into the file; >> appends to it\n"
                      u"a 2> file    its errors do; a >& file takes both, a 2>&1 joins them\n"
                      u"a < file     a reads the file in place of the keyboard\n"
                      u"a <<< text   a reads the text; in a batch file a << END reads the lines up to END\n"
                      u"a > nul      nobody reads it; CLIP: is the clipboard\n"
                      u"a >! file    replaces a file although the setting NoClobber is on",
                      width);
    AppendHelpSection(text, u"Characters with a meaning",
                      u"\"...\"       text with blanks; & | < > ^ in it are text, % is not\n"
                      u"^x          the character x as text; ^n ends a line, ^t is a tab\n"
                      u"%name       the variable's value; %_name an internal variable, %1 an argument\n"
                      u"%@f[...]    what the function f answers; %% is a percent sign\n"
                      u"* ? [a-c]   in names of files: any characters, one character, one of these\n"
                      u"...         in names of directories: two levels up, .... three",
                      width);
    return text;
}
