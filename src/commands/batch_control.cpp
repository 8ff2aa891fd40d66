#include "commands/batch_control.h"

#include "batch/batch_file.h"
#include "batch/frames.h"
#include "batch/label_search.h"
#include "core/command_switches.h"
#include "engine/results.h"
#include "engine/state.h"
#include "lang/messages.h"
#include "text/numbers.h"
#include "text/words.h"

const CommandHelp quitHelp = {
    u"Ends the batch file.",
    u"QUIT [number]",
    u"The number becomes the error level and the exit code of the batch file.",
    u"quit\n"
    u"quit 3",
};

const CommandHelp cancelHelp = {
    u"Ends the batch file and all those that called it.",
    u"CANCEL [number]",
    u"The number becomes the error level and the exit code of the batch files.",
    u"cancel\n"
    u"cancel 1",
};

const CommandHelp shiftHelp = {
    u"Moves the arguments of the batch file.",
    u"SHIFT [number | /number]",
    u"Without a number %1 becomes %0, %2 becomes %1 and so on; a number moves by as many places, a negative "
    u"one back again.\n"
    u"/n  take argument n out; those behind it move up",
    u"shift\n"
    u"shift -1\n"
    u"shift /2",
};

const CommandHelp deferHelp = {
    u"Runs a command when the batch file ends.",
    u"DEFER command",
    u"Deferred commands run in the order in which they were given, however the batch file ends, and before "
    u"SETLOCAL and LOCAL are undone.",
    u"defer del %temp%\\work.txt",
};

const CommandHelp loadbtmHelp = {
    u"Shows or changes whether the batch file runs from memory.",
    u"LOADBTM [ON | OFF]",
    u"From memory it runs faster, and changes of the file are not seen.",
    u"loadbtm on",
};

namespace {

// Reads the exit code, if one is given, into the error level; false when none is.
bool TakeExitCode(std::u16string_view arguments)
{
    const CString word = GetNthArgument(arguments, 0, CurrentSyntax());
    if (word.empty())
        return false;
    const auto number = ReadInteger(word);
    // A script that wants to end must end all the same.
    Tls().errorLevel =
        number ? static_cast<int>(static_cast<std::uint32_t>(*number)) : MVError(errors::invalidNumber, word);
    return true;
}

void EndFrames(int first, std::u16string_view arguments)
{
    TLS_VARIABLES& tls = Tls();
    const bool hasCode = TakeExitCode(arguments);
    for (int index = first; index >= 0 && index <= tls.batchIndex; ++index) {
        RemoveParameters(index);
        BATCH_FRAME& frame = tls.frames[static_cast<std::size_t>(index)];
        frame.readOffset = -1;
        if (hasCode)
            frame.exitCode = static_cast<unsigned>(tls.errorLevel);
    }
}

} // namespace

int Quit_Command(CString& arguments)
{
    EndFrames(Tls().batchIndex, arguments);
    return result::abandonLine;
}

int Cancel_Command(CString& arguments)
{
    EndFrames(0, arguments);
    return result::abandonLine;
}

int Shift_Command(CString& arguments)
{
    BATCH_FRAME& frame = *Tls().Frame();
    const std::u16string_view text = arguments;
    const bool removes = !text.empty() && text.front() == CurrentSyntax().switchChar;
    const auto number = ReadInteger(removes ? text.substr(1) : text);
    if (!number && !text.empty())
        return MVError(errors::invalidNumber, text);
    if (removes)
        RemoveArgument(frame, *number);
    else
        ShiftArguments(frame, number.value_or(1));
    return result::success;
}

int Defer_Command(CString& arguments)
{
    if (arguments.empty())
        return UsageError();
    CString& deferred = Tls().Frame()->deferred;
    if (!deferred.empty())
        deferred.Append(u'\n');
    deferred.Append(arguments);
    return result::success;
}

int Loadbtm_Command(CString& arguments)
{
    const bool loaded = Tls().Frame()->file == batchFileInMemory;
    bool wanted = loaded;
    if (const int code = ShowOrSwitch(arguments, wanted, message::loadbtmState))
        return code;
    if (wanted == loaded)
        return result::success;
    if (wanted)
        return LoadBatchIntoMemory();
    UnloadBatchFromMemory();
    return result::success;
}
