#include "commands/exec.h"

#include "commands/batch_control.h"
#include "core/command_switches.h"
#include "core/external.h"
#include "engine/results.h"
#include "engine/state.h"
#include "text/escapes.h"
#include "text/words.h"

const CommandHelp execHelp = {
    u"Runs a program or batch file in the place of the shell.",
    u"EXEC program [arguments]",
    u"Neither aliases nor internal commands are looked at. The shell runs nothing any more but what EXIT "
    u"runs, too; it ends when the program does, with the program's exit code, and does not wait for a "
    u"windowed one that was started at the prompt. When there is no such program the shell stays, with "
    u"error level 2.",
    u"exec c:\\tools\\editor.exe %1\n"
    u"exec next.btm",
};

int Exec_Command(CString& arguments)
{
    if (arguments.Trim().empty())
        return UsageError();
    const Syntax syntax = CurrentSyntax();
    TLS_VARIABLES& tls = Tls();
    CString name = GetNthArgument(arguments, 0, syntax);
    UnEscapeLine(name, syntax);
    int code = result::success;
    tls.batchStartMode = batch_start::call;
    const bool found = RunExternal(arguments, name, true, code);
    tls.batchStartMode = 0;
    if (!found)
        return MVError(errors::unknownCommand, WithoutQuotes(name));
    CString none;
    Cancel_Command(none);
    if (tls.workerMustEnd)
        return result::abandonBatch;
    aGlobals.exitRequested = 1;
    aGlobals.exitCode = tls.errorLevel;
    return result::abandonBatch;
}
