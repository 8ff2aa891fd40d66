// Lines of text files by their numbers. CLIP: and TMP0: to TMP2: are files here as they are for redirection.
#include "functions/families.h"

#include <windows.h>

#include "core/pseudo_devices.h"
#include "files/numbered_lines.h"
#include "functions/arguments.h"
#include "functions/line_answers.h"

namespace {

// A file, or what stands for a device of the shell's own.
class LineSource {
public:
    bool Open(std::u16string_view name)
    {
        device = PseudoDevice::Find(name);
        CString path(name);
        return (!device || device->PrepareInput(path)) && lines.Open(path);
    }

    NumberedLines& Lines() { return lines; }

private:
    std::unique_ptr<PseudoDevice> device; // outlives the open file, which may be its own
    NumberedLines lines;
};

} // namespace

// @line[name,n]: line n of the file, from 0, a negative n from the end; **EOF** when there is none.
int Line_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"sn");
    if (arguments.Error())
        return arguments.Error();
    LineSource source;
    if (!source.Open(FileArgument(arguments.Text(0))))
        return Refuse(GetLastError());
    CString line;
    const bool there = source.Lines().Read(arguments.Number(1), line);
    return AnswerLine(call, line, !there);
}

// @lines[name]: how many lines the file has, -1 when it cannot be read.
int Lines_Function(FunctionCall& call)
{
    LineSource source;
    const auto count = source.Open(FileArgument(call.arguments)) ? source.Lines().Count() : std::nullopt;
    return answer::Number(call, count.value_or(-1));
}
