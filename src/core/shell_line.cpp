#include "core/shell_line.h"

#include "platform/process_line.h"

CString ShellLine(std::u16string_view program, std::u16string_view switches, std::u16string_view mode,
                  std::u16string_view text)
{
    CString line = ProcessLine(program, {});
    line.Append(switches);
    if (text.empty())
        return line;
    line.Append(u' ').Append(mode);
    // A text that is one quoted word would lose its quotes on the way.
    if (text.front() == u'"')
        AddProcessArgument(line, text);
    else
        line.Append(u' ').Append(text);
    return line;
}
