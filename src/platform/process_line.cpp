#include "platform/process_line.h"

#include "text/compare.h"

CString ProcessLine(std::u16string_view program, std::u16string_view argumentText)
{
    CString line;
    line.Reserve(program.size() + argumentText.size() + 3);
    line.Append(u'"').Append(program).Append(u'"');
    if (!argumentText.empty() && !IsBlank(argumentText.front()))
        line.Append(u' ');
    line.Append(argumentText);
    return line;
}

void AddProcessArgument(CString& line, std::u16string_view argument)
{
    if (!line.empty())
        line.Append(u' ');
    if (!argument.empty() && argument.find_first_of(u" \t\n\v\"") == std::u16string_view::npos) {
        line.Append(argument);
        return;
    }
    line.Append(u'"');
    std::size_t backslashes = 0;
    for (const char16_t unit : argument) {
        if (unit == u'"') // backslashes in front of a quote escape: double them, and escape the quote
            line.Append(CString(backslashes + 1, u'\\'));
        backslashes = unit == u'\\' ? backslashes + 1 : 0;
        line.Append(unit);
    }
    line.Append(CString(backslashes, u'\\')).Append(u'"');
}
