#include "commands/printf.h"

#include "commands/printf_format.h"
#include "core/command_switches.h"
#include "engine/output.h"
#include "engine/results.h"

const CommandHelp printfHelp = {
    u"Prints its arguments as a format tells.",
    u"PRINTF format [argument ...]",
    u"%s  text; %b  text with escapes; %c  its first character\n"
    u"%d %i %u  whole number; %o  octal; %x %X  hexadecimal\n"
    u"%e %f %g  floating number; %a  the same in hexadecimal\n"
    u"%%  the percent sign\n"
    u"Between % and the letter: - on the left, + with sign, 0 filled with zeros, # with prefix, a width, "
    u"and a period and a precision; * takes the number from the arguments. Escapes are \\n line end (CR and "
    u"LF), \\t tab, \\a bell, \\b, \\e, \\f, \\r, \\v, \\\\, \\\", \\nnn octal, \\xhh and \\uhhhh. No line "
    u"end is added. The format is used again until no argument is left; a missing argument is nothing, or "
    u"0. A format in back-quotes keeps its percent signs; elsewhere they are doubled in batch files.",
    u"printf `%-10s %5d\\n` apples 3 pears 12\n"
    u"printf `%.2f\\n` 3.14159\n"
    u"printf `%08x\\n` 48879",
};

int Printf_Command(CString& arguments)
{
    std::vector<CString> words = SplitPrintfWords(arguments);
    if (words.empty())
        return UsageError();
    const CString format = words.front();
    words.erase(words.begin());
    const PrintfAnswer answer = FormatPrintf(format, words);
    if (answer.error != 0)
        return MVError(answer.error, answer.culprit);
    return answer.text.empty() || Print(answer.text) ? result::success : MVError(0);
}
