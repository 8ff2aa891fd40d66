#include "commands/exit.h"

#include "core/command_switches.h"
#include "engine/results.h"
#include "engine/state.h"
#include "text/numbers.h"
#include "text/words.h"

const CommandHelp exitHelp = {
    u"Ends the shell, or the batch file.",
    u"EXIT [/B] [number]",
    u"/B  end the batch file only; outside a batch file the shell ends\n"
    u"The number becomes the exit code of the shell, or the error level that the batch file leaves. Without "
    u"it the error level stays as it is, and is the exit code.",
    u"exit\n"
    u"exit 3\n"
    u"exit /b %errorlevel",
};

namespace {

// The exit code asked for; the present error level when none is. What is no number is reported and counts
// as a failure: a script that wants to end must end all the same.
int ReadExitCode(std::u16string_view arguments)
{
    const CString word = GetNthArgument(arguments, 0, CurrentSyntax());
    if (word.empty())
        return Tls().errorLevel;
    const auto number = ParseInteger(word);
    if (!number)
        return MVError(errors::invalidNumber, word);
    // Windows exit codes have 32 bits; 0xC0000005 and -1073741819 are the same code.
    return static_cast<int>(static_cast<std::uint32_t>(*number));
}

void EndFrame(BATCH_FRAME& frame, int code)
{
    frame.readOffset = -1;
    frame.exitCode = static_cast<unsigned>(code);
}

} // namespace

int Exit_Command(CString& arguments)
{
    std::uint64_t flags = 0;
    if (const int code = ReadSwitches(arguments, u"B", flags, SwitchPlace::Leading))
        return code;
    TLS_VARIABLES& tls = Tls();
    tls.errorLevel = ReadExitCode(arguments);
    BATCH_FRAME* current = tls.Frame();
    if (flags != 0 && current) {
        EndFrame(*current, tls.errorLevel);
        return result::abandonLine;
    }
    for (int i = 0; i <= tls.batchIndex; ++i)
        EndFrame(tls.frames[static_cast<std::size_t>(i)], tls.errorLevel);
    aGlobals.exitRequested = 1;
    aGlobals.exitCode = tls.errorLevel;
    return result::abandonBatch;
}
