#include "commands/goto_call.h"

#include <algorithm>
#include <utility>

#include <windows.h>

#include "batch/label_search.h"
#include "batch/subroutines.h"
#include "core/command_switches.h"
#include "core/path_search.h"
#include "engine/command_entry.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "platform/file_facts.h"
#include "text/compare.h"
#include "text/numbers.h"
#include "text/path_names.h"
#include "text/words.h"

const CommandHelp gotoHelp = {
    u"Goes on at a label of the batch file.",
    u"GOTO [/I] [:]label",
    u"/I  stay inside the IFF and DO blocks that are open\n"
    u"The label EOF, when the file has none of that name, ends the batch file.",
    u"goto end\n"
    u"goto :eof",
};

const CommandHelp gosubHelp = {
    u"Runs the lines behind a label as a subroutine, up to RETURN.",
    u"GOSUB label [arguments]\n"
    u"GOSUB file label [arguments]",
    u"The label line may name parameters: \":label [name size]\"; they are variables that only the "
    u"subroutine sees.",
    u"gosub backup \"C:\\My Files\" 3\n"
    u"gosub library.btm log %message",
};

const CommandHelp returnHelp = {
    u"Comes back from a subroutine.",
    u"RETURN [number]",
    u"Behind the GOSUB the number is %_?.",
    u"return\n"
    u"return 2",
};

const CommandHelp callHelp = {
    u"Runs another batch file, or a label of this one, and comes back.",
    u"CALL [file | :label] [arguments]\n"
    u"CALL command",
    u"A label is called with its arguments as %1, %2 ... Any other command is expanded a second time and "
    u"run.",
    u"call build.cmd release\n"
    u"call :copyfiles %1\n"
    u"call set value=%%list_%n%%",
};

const CommandHelp callerHelp = {
    u"Shows where the batch file stands and who called it.",
    u"CALLER [level]",
    u"Level 1 is the innermost subroutine, higher ones lie further out.",
    u"caller\n"
    u"caller 1",
};

namespace {

bool IsBatchExtension(std::u16string_view extension)
{
    return EqualNoCase(extension, u".btm") || EqualNoCase(extension, u".bat") ||
           EqualNoCase(extension, u".cmd");
}

// A subroutine of another file is called by two words, the first of which names a batch file.
bool NamesFile(std::u16string_view word, std::u16string_view behind)
{
    if (behind.empty() || word.empty() || word.front() == u':')
        return false;
    return IsBatchExtension(ExtensionPart(word)) || QueryIsFile(word);
}

int GosubIntoFile(const CString& name, std::u16string_view arguments)
{
    const CString file = SearchPaths(name, SearchKind::Batch);
    if (file.empty())
        return MVError(ERROR_FILE_NOT_FOUND, name);
    return CallSubroutineInFile(file, name, arguments);
}

// Calling a label runs the current batch file once more, from the label on.
CString CallOfLabel(const BATCH_FRAME& frame, std::u16string_view arguments)
{
    const bool unquoted = (frame.flags & frame_flags::callsAlways) != 0;
    return Format(unquoted ? u"%s %s" : u"\"%s\" %s", frame.fileName, arguments);
}

} // namespace

int Goto_Command(CString& arguments)
{
    std::uint64_t staysInBlocks = 0;
    if (const int code = ReadSwitches(arguments, u"I", staysInBlocks, SwitchPlace::Leading))
        return code;
    TLS_VARIABLES& tls = Tls();
    const int found = FindLabel(arguments, LabelSearch::Report);
    if (found == noLabelGiven)
        return UsageError();
    if (found == result::abandonBatch)
        return found;
    if (found != result::success) {
        tls.labelMissing = true;
        return result::abandonLine;
    }
    if (staysInBlocks != 0)
        return result::abandonLine;
    const BlockState left = std::exchange(tls.blocks, BlockState());
    return left.doRunning > 0 ? result::abandonBatch : result::abandonLine;
}

int Gosub_Command(CString& arguments)
{
    const Syntax syntax = CurrentSyntax();
    const CString first = GetNthArgument(arguments, 0, syntax);
    if (first.empty())
        return UsageError();
    const std::u16string_view behind = TailFromArgument(arguments, 1, syntax);
    const CString name = WithoutQuotes(first);
    const int answer = NamesFile(name, behind) ? GosubIntoFile(name, behind) : CallSubroutine(arguments);
    if (answer == noLabelGiven)
        return UsageError();
    return answer == result::success ? result::fromSubroutine : answer;
}

int Ret_Command(CString& arguments)
{
    TLS_VARIABLES& tls = Tls();
    BATCH_FRAME& frame = *tls.Frame();
    if (frame.subroutineDepth == 0)
        return MVError(errors::noGosub);
    --frame.subroutineDepth;
    tls.subroutineResult = static_cast<int>(ReadInteger(arguments).value_or(0));
    frame.returnValue = static_cast<unsigned>(tls.subroutineResult);
    return result::returned;
}

int Call_Command(CString& arguments)
{
    if (arguments.empty())
        return UsageError();
    TLS_VARIABLES& tls = Tls();
    CString command(arguments);
    unsigned mode = batch_start::call;
    if (command.front() == u':') {
        if (!tls.Frame())
            return MVError(errors::batchOnly, GetNthArgument(command, 0, CurrentSyntax()));
        command = CallOfLabel(*tls.Frame(), command);
        mode |= batch_start::callLabel;
    }
    tls.batchStartMode = mode;
    const int answer = Command_S(command, 0);
    Tls().batchStartMode = 0;
    return answer;
}

int Caller_Command(CString& arguments)
{
    TLS_VARIABLES& tls = Tls();
    const BATCH_FRAME& frame = *tls.Frame();
    if (arguments.empty()) {
        PrintFormat(u"%d  %s\r\n", frame.lineNumber, frame.fileName);
        return result::success;
    }
    const auto labels = static_cast<std::int64_t>(frame.labels.size());
    const auto level = ParseInteger(arguments);
    if (!level || *level < 0 || *level > labels + tls.batchIndex)
        return MVError(ERROR_INVALID_PARAMETER, arguments);
    const std::int64_t steps = std::min(*level, labels);
    const std::int64_t outwards = *level - steps;
    const BATCH_FRAME& reached = tls.frames[static_cast<std::size_t>(tls.batchIndex - outwards)];
    const auto label = static_cast<std::size_t>(labels - std::max<std::int64_t>(steps, 1));
    const CString name = labels == 0 ? CString(u"main") : frame.labels[label];
    PrintFormat(u"%d  %s  %s\r\n", reached.lineNumber, name, reached.fileName);
    return result::success;
}
