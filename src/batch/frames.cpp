#include "batch/frames.h"

#include <algorithm>
#include <utility>

#include "batch/batch_file.h"
#include "batch/local_environment.h"
#include "batch/on_events.h"
#include "engine/batch_entry.h"
#include "engine/break.h"
#include "engine/command_entry.h"
#include "engine/console_entry.h"
#include "engine/inifile.h"
#include "engine/results.h"

namespace {

// Commands deferred to the end of the frame run while it still lives, but no line is read from its file any
// more, and a batch file that they start comes back.
void RunDeferredCommands(TLS_VARIABLES& tls)
{
    BATCH_FRAME& frame = *tls.Frame();
    const CString commands = std::exchange(frame.deferred, CString());
    if (commands.empty())
        return;
    CloseFrameFile(frame);
    frame.memoryText.reset();
    frame.file = batchFileClosed;
    frame.flags |= frame_flags::noFile | frame_flags::callsAlways;
    frame.readOffset = 0;
    for (std::size_t start = 0; start < commands.size();) {
        const std::size_t end = std::min(commands.Find(u'\n', start), commands.size());
        try {
            Command_S(commands.Substr(start, end - start), line_flags::batch);
        } catch (const Break&) {
            // The others are as dear to their author as this one was.
            ClearBreak();
        }
        start = end + 1;
    }
}

} // namespace

BATCH_FRAME NewFrame(std::vector<CString> arguments, std::u16string_view invokedAs,
                     std::u16string_view argumentText)
{
    TLS_VARIABLES& tls = Tls();
    const BATCH_FRAME* current = tls.Frame();
    BATCH_FRAME frame;
    frame.SetFileName(arguments.front());
    frame.arguments = std::move(arguments);
    frame.arguments.front() = CString(invokedAs);
    frame.argumentText = CString(argumentText);
    frame.echo = current ? current->echo : aIniFile.BatchEcho != 0;
    frame.serial = ++tls.batchSerial;
    return frame;
}

void PushFrame(BATCH_FRAME&& frame)
{
    TLS_VARIABLES& tls = Tls();
    tls.frames.push_back(std::move(frame));
    tls.batchIndex = static_cast<int>(tls.frames.size()) - 1;
}

int ExitBatchFile()
{
    TLS_VARIABLES& tls = Tls();
    if (tls.batchIndex < 0 || tls.batchIndex <= tls.batchFloor)
        return result::error;
    RunDeferredCommands(tls);
    RestoreSavedVariables(*tls.Frame());
    EndAllLocalEnvironments(tls.Frame()->localEnvironments);
    ReleaseOnCommands(*tls.Frame());
    CloseFrameFile(*tls.Frame());
    tls.frames.pop_back();
    --tls.batchIndex;
    UpdateTitleAndIcon({});
    return result::success;
}

void AbandonFrame()
{
    if (BATCH_FRAME* frame = Tls().Frame())
        frame->readOffset = -1;
}

void AbandonAllFrames()
{
    for (BATCH_FRAME& frame : Tls().frames)
        frame.readOffset = -1;
}

void ShiftArguments(BATCH_FRAME& frame, long long steps)
{
    const auto end = static_cast<long long>(frame.arguments.size());
    const long long count = std::clamp<long long>(steps, -end, end) + frame.shiftCount;
    frame.shiftCount = static_cast<unsigned>(std::clamp<long long>(count, 0, end));
}

void RemoveArgument(BATCH_FRAME& frame, long long position)
{
    const auto size = static_cast<long long>(frame.arguments.size());
    if (position <= size && position + frame.shiftCount >= 0 && position + frame.shiftCount < size)
        frame.arguments.erase(frame.arguments.begin() +
                              static_cast<std::ptrdiff_t>(position + frame.shiftCount));
}
