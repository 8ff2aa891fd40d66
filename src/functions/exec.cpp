// Running command lines from within a line.
#include "functions/families.h"

#include <windows.h>

#include "core/output_capture.h"
#include "engine/command_entry.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/text_reader.h"
#include "text/format.h"

namespace {

// What a command's result means as an exit code.
int ExitCode(int code)
{
    const bool succeeded = EndsLine(code) || code == result::handled || code == result::keepErrorLevel;
    return succeeded ? 0 : code;
}

} // namespace

// @exec[command] and %(command): runs the command, whose output goes where it always goes, and gives its exit
// code.
int Exec_Function(FunctionCall& call)
{
    call.value = Format(u"%d", ExitCode(Command_S(CString(call.arguments), 0)));
    return 0;
}

// @execstr[command] and %{command}: the first line that the command writes to standard output.
int Execstr_Function(FunctionCall& call)
{
    OutputCapture capture;
    bool ran = false;
    Tls().execStrResult = ExitCode(capture.Run(CString(call.arguments), ran));
    TextReader reader;
    CString text;
    if (!ran || !reader.Open(capture.File()) || !reader.Read(text))
        return static_cast<int>(GetLastError());
    call.value = text.view().substr(0, text.view().find_first_of(u"\r\n"));
    return function_result::neverRescan;
}
