#include "batch/subroutines.h"

#include <utility>

#include "batch/batch_file.h"
#include "batch/frames.h"
#include "batch/label_search.h"
#include "batch/line_loop.h"
#include "batch/packed_text.h"
#include "batch/reader.h"
#include "engine/batch_entry.h"
#include "engine/results.h"
#include "engine/state.h"
#include "text/words.h"

namespace {

// What a subroutine must leave behind as it was.
struct CallersPlace {
    std::int64_t readOffset;
    unsigned lineNumber;
    unsigned serial;
    int depth;
    std::size_t labels;
    CString parameterNames;
    unsigned returnValue;
    BlockState blocks;
};

CallersPlace Leave(TLS_VARIABLES& tls)
{
    BATCH_FRAME& frame = *tls.Frame();
    return {frame.readOffset,      frame.lineNumber,    frame.serial,
            frame.subroutineDepth, frame.labels.size(), std::exchange(frame.parameterNames, CString()),
            frame.returnValue,     tls.blocks};
}

void Restore(TLS_VARIABLES& tls, CallersPlace& place)
{
    BATCH_FRAME& frame = *tls.Frame();
    if (frame.readOffset >= 0) {
        frame.readOffset = place.readOffset;
        frame.lineNumber = place.lineNumber;
    }
    tls.blocks = place.blocks;
    RemoveParameters(tls.batchIndex);
    frame.labels.resize(std::min(frame.labels.size(), place.labels));
    frame.callerLines.resize(frame.labels.size());
    frame.parameterNames = std::move(place.parameterNames);
    frame.subroutineDepth = place.depth;
    tls.subroutineResult = static_cast<int>(frame.returnValue);
    frame.returnValue = place.returnValue;
}

// Whether the frame that made the call still runs: a file chained meanwhile has taken its place.
bool IsStillThere(TLS_VARIABLES& tls, int index, const CallersPlace& place)
{
    return tls.batchIndex == index && tls.Frame()->serial == place.serial;
}

// Packed texts have no labels until they are unpacked.
int LoadIfPacked()
{
    if (!OpenBatchFile())
        return result::error;
    const std::string_view start = FirstBlock(*Tls().Frame());
    const bool packed = IsPackedText(start) || start.starts_with("PK\x03\x04");
    return packed ? LoadBatchIntoMemory() : result::success;
}

} // namespace

int CallSubroutine(std::u16string_view arguments)
{
    TLS_VARIABLES& tls = Tls();
    const int index = tls.batchIndex;
    CallersPlace place = Leave(tls);
    const int found = FindLabel(arguments, LabelSearch::Subroutine);
    if (found != result::success) {
        tls.Frame()->parameterNames = std::move(place.parameterNames);
        return found;
    }
    tls.blocks = {};
    BATCH_FRAME& frame = *tls.Frame();
    frame.returnValue = 0;
    ++frame.subroutineDepth;
    if (!frame.callerLines.empty())
        frame.callerLines.back() = place.lineNumber;

    const int answer = BatchLineLoop();
    if (tls.batchIndex < index)
        return result::abandonLine;
    if (answer == breakResult || !IsStillThere(tls, index, place))
        AbandonFrame();
    if (IsStillThere(tls, index, place))
        Restore(tls, place);
    return tls.Frame()->readOffset < 0 ? result::abandonLine : result::success;
}

int CallSubroutineInFile(const CString& fileName, std::u16string_view invokedAs,
                         std::u16string_view arguments)
{
    TLS_VARIABLES& tls = Tls();
    if (tls.batchIndex >= maximumBatchFrames - 1)
        return MVError(errors::batchNesting, fileName);
    std::vector<CString> words = SplitArguments(arguments, true, CurrentSyntax());
    words.front() = fileName;
    const CString labelAndArguments(arguments);
    PushFrame(NewFrame(std::move(words), invokedAs, TailFromArgument(arguments, 1, CurrentSyntax())));
    const int index = tls.batchIndex;
    int answer = LoadIfPacked();
    if (answer == result::success)
        answer = CallSubroutine(labelAndArguments);
    if (tls.batchIndex == index)
        ExitBatchFile();
    return answer == result::abandonLine ? result::success : answer;
}
