#include "batch/line_loop.h"

#include <utility>

#include "batch/batch_file.h"
#include "batch/frames.h"
#include "batch/label_search.h"
#include "batch/on_events.h"
#include "engine/batch_entry.h"
#include "engine/break.h"
#include "engine/command_entry.h"
#include "engine/console_entry.h"
#include "engine/inifile.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "lang/messages.h"
#include "text/compare.h"
#include "text/path_names.h"
#include "text/words.h"

namespace {

enum class AfterBreak { GoOn, EndFile, EndAll };

AfterBreak AskAfterBreak(const BATCH_FRAME& frame)
{
    const bool decided = frame.readOffset < 0; // all are to end: asked further in
    if (decided || aGlobals.exitRequested || aIniFile.AutoCancel || !IsConsole(0))
        return AfterBreak::EndAll;
    const char16_t answer = QueryInputChar(message::cancelBatch, frame.fileName, u"YNA", u'A');
    if (answer == u'N')
        return AfterBreak::GoOn;
    return answer == u'Y' ? AfterBreak::EndFile : AfterBreak::EndAll;
}

// A break has come up to a line of the current frame. ON says what becomes of it; what ON says nothing about,
// the person decides.
AfterBreak DecideAfterBreak(TLS_VARIABLES& tls, int& answer)
{
    const bool endsShell = break_event::EndsShell(tls.breakEvent);
    const unsigned serial = tls.Frame()->serial;
    try {
        if (RunOnBreak(answer)) {
            if (!endsShell)
                return AfterBreak::GoOn;
            // There is time for what the command jumps to, but for no more of the file.
            BATCH_FRAME* frame = tls.Frame();
            if (EndsLine(answer) && frame && frame->serial == serial && frame->readOffset >= 0) {
                frame->closing = true;
                return AfterBreak::GoOn;
            }
        }
    } catch (const Break&) {
        ClearBreak();
    }
    if (!CallerAwaitsBreak())
        return AskAfterBreak(*tls.Frame());
    AbandonFrame();
    throw Break{breakResult};
}

// Runs one line of the loop that owns frame `index`. A break abandons the line, and the person decides about
// the rest; false when the batch file is to end. A break that ends all of them goes on to the caller.
bool RunLine(TLS_VARIABLES& tls, int index, CString line, int& answer)
{
    const int unknownDepth = tls.unknownCommandDepth;
    const int associationDepth = tls.associationDepth;
    try {
        answer = RunBatchLine(std::move(line));
        return true;
    } catch (const Break&) {
        ClearBreak();
        ResetParsingFlags();
        tls.unknownCommandDepth = unknownDepth;
        tls.associationDepth = associationDepth;
        tls.batchStartMode = 0;
        tls.loopSignal = LoopSignal::None;
        if (tls.batchIndex < index)
            throw;
        answer = result::success;
        const AfterBreak after = DecideAfterBreak(tls, answer);
        if (after == AfterBreak::EndAll) {
            AbandonAllFrames();
            throw;
        }
        if (after == AfterBreak::EndFile)
            answer = breakResult;
        return after == AfterBreak::GoOn;
    }
}

// Whether a batch file that is started without CALL replaces the current one.
bool CurrentFrameGivesWay(const TLS_VARIABLES& tls)
{
    return tls.batchIndex > tls.batchFloor &&
           (tls.frames[static_cast<std::size_t>(tls.batchIndex)].flags & frame_flags::callsAlways) == 0;
}

// CALL of a label runs the caller's own file in a second frame: the open file and what was read ahead of it
// change hands instead of being opened twice.
void HandOverFile(BATCH_FRAME& from, BATCH_FRAME& to)
{
    if (from.file == batchFileClosed || !EqualNoCase(from.fileName, to.fileName))
        return;
    constexpr unsigned aboutText =
        frame_flags::packed | frame_flags::keyed | frame_flags::utf16 | frame_flags::utf8;
    to.flags |= from.flags & aboutText;
    to.encodingKnown = from.encodingKnown;
    to.firstOffset = from.firstOffset;
    if (from.file == batchFileInMemory) {
        to.memoryText = from.memoryText;
        to.file = batchFileInMemory;
    } else if (to.file == batchFileClosed) {
        to.file = std::exchange(from.file, batchFileClosed);
        to.readAhead = std::move(from.readAhead);
        to.readAheadOffset = std::exchange(from.readAheadOffset, -1);
        to.readAheadEnds = from.readAheadEnds;
    }
}

BATCH_FRAME* FrameBelow(TLS_VARIABLES& tls)
{
    return tls.batchIndex > 0 ? &tls.frames[static_cast<std::size_t>(tls.batchIndex) - 1] : nullptr;
}

// The arguments of `CALL :label a b` are the label, a and b; the label becomes %0.
int StartAtLabel(TLS_VARIABLES& tls)
{
    BATCH_FRAME& frame = *tls.Frame();
    if (BATCH_FRAME* caller = FrameBelow(tls)) {
        HandOverFile(*caller, frame);
        frame.readOffset = frame.firstOffset;
    }
    const CString text = frame.argumentText;
    const int found = FindLabel(text, LabelSearch::Report);
    if (found != result::success)
        return found;
    frame.argumentText = CString(TailFromArgument(text, 1, CurrentSyntax()));
    if (frame.arguments.size() > 1)
        frame.arguments.erase(frame.arguments.begin());
    return result::success;
}

int PrepareFrame(TLS_VARIABLES& tls, unsigned mode)
{
    if (mode & batch_start::callLabel)
        return StartAtLabel(tls);
    if (EndsNoCase(tls.Frame()->fileName, u".btm"))
        return LoadBatchIntoMemory();
    return result::success;
}

// Runs the current frame, and whatever is chained in its place, to the end.
int RunFrame(TLS_VARIABLES& tls)
{
    const int index = tls.batchIndex;
    const int answer = BatchLineLoop();
    if (tls.batchIndex == index && tls.Frame()->closing)
        throw Break{breakResult}; // the callers have commands of their own for the end of the shell
    if (EndsLine(answer))
        return result::success;
    return answer == 0 && tls.batchIndex == index ? ResultOfExitCode(tls.Frame()->exitCode) : answer;
}

// Ends the frame that RunBatchFile has begun, also when a break ends them all.
struct FrameEnd {
    TLS_VARIABLES& tls;
    int index;
    unsigned mode;
    BlockState callersBlocks;

    ~FrameEnd()
    {
        if (tls.batchIndex == index) {
            if (BATCH_FRAME* caller = FrameBelow(tls); caller && (mode & batch_start::callLabel) != 0)
                HandOverFile(*tls.Frame(), *caller);
            ExitBatchFile();
        }
        if (mode != 0)
            tls.blocks = callersBlocks;
    }
};

// To standard error: depth, file, line number and the line as it stands in the file.
void TraceLine(const BATCH_FRAME& frame, int depth, std::u16string_view line)
{
    PrintError(Format(u"[%d] %s:%u: %s\r\n", depth, FileNamePart(frame.fileName), frame.lineNumber, line));
}

// The file is at its end: an IFF that still stands open has no ENDIFF.
int CloseOpenBlocks(TLS_VARIABLES& tls)
{
    const int open = std::exchange(tls.blocks.iffNesting, std::uint16_t{0});
    tls.blocks.iffSkipped = 0;
    if (open == 0)
        return result::success;
    return tls.errorLevel = BatchTextError(errors::noEndIff, u"IFF", tls.Frame()->lineNumber);
}

} // namespace

int RunBatchLine(CString line)
{
    TLS_VARIABLES& tls = Tls();
    if ((aIniFile.Debug & debug_bits::traceLines) != 0 && tls.Frame())
        TraceLine(*tls.Frame(), tls.batchIndex + 1 + tls.Frame()->subroutineDepth, line);
    return TestOnCondition(Command_S(std::move(line), line_flags::batch));
}

int BatchLineLoop()
{
    TLS_VARIABLES& tls = Tls();
    const int index = tls.batchIndex;
    int answer = result::success;
    bool goesOn = index >= 0;
    CString line;
    // A chained file that could not start has taken this loop's frame away.
    while (goesOn && tls.batchIndex >= index && tls.Frame()->readOffset >= 0) {
        EnableSignals();
        if (!OpenBatchFile())
            answer = tls.errorLevel = result::error;
        else if (!ReadBatchLine(line))
            answer = CloseOpenBlocks(tls);
        else if (RunLine(tls, index, std::move(line), answer) && answer != result::abandonBatch)
            continue;
        goesOn = false;
    }
    // The file stays open: a subroutine goes on in it, and the end of the frame closes it.
    return goesOn ? result::success : answer;
}

int RunBatchFile(std::vector<CString> arguments, std::u16string_view invokedAs,
                 std::u16string_view argumentText)
{
    TLS_VARIABLES& tls = Tls();
    unsigned mode = std::exchange(tls.batchStartMode, 0u);
    if (tls.batchIndex >= maximumBatchFrames - 1)
        return tls.errorLevel = MVError(errors::batchNesting, arguments.front());
    // Made before the old frame ends: the texts may belong to it.
    BATCH_FRAME frame = NewFrame(std::move(arguments), invokedAs, argumentText);
    bool nestedChain = false;
    if (mode == 0 && CurrentFrameGivesWay(tls)) {
        nestedChain = (tls.Frame()->flags & frame_flags::nestedChain) != 0;
        ExitBatchFile();
    } else {
        mode |= batch_start::call;
    }
    const BlockState callersBlocks = std::exchange(tls.blocks, BlockState());
    PushFrame(std::move(frame));
    const int index = tls.batchIndex;
    const int answer = PrepareFrame(tls, mode);
    if (answer == result::success && mode == 0 && !nestedChain)
        return result::abandonLine;
    const FrameEnd end{tls, index, mode, callersBlocks};
    if (answer == result::success)
        return RunFrame(tls);
    return tls.errorLevel = answer; // it could not start
}
