#include "console/progress.h"

#include <algorithm>

#include "engine/output.h"
#include "platform/clock.h"
#include "platform/console.h"
#include "platform/console_size.h"

namespace {

constexpr std::uint64_t patience = 1000; // milliseconds
constexpr std::uint64_t interval = 200;

thread_local Progress* visible = nullptr;

} // namespace

Progress::Progress(bool atOnce)
    : watched(IsConsole(1)), started(Ticks()), due(started + (atOnce ? 0 : patience))
{}

void Progress::Expect(std::uint64_t files, std::uint64_t bytes)
{
    facts.allFiles += files;
    facts.allBytes += bytes;
}

void Progress::Skip(std::uint64_t bytes)
{
    facts.allFiles -= std::min<std::uint64_t>(facts.allFiles, 1);
    facts.allBytes -= std::min(facts.allBytes, bytes);
}

void Progress::Begin(std::u16string_view fileName)
{
    if (!watched)
        return;
    name = fileName;
    At(0);
}

void Progress::At(std::uint64_t bytes)
{
    if (watched && Ticks() >= due)
        Show(bytes);
}

void Progress::End(std::uint64_t bytes)
{
    ++facts.files;
    facts.bytes += bytes;
}

void Progress::Show(std::uint64_t bytesOfFile)
{
    const std::uint64_t now = Ticks();
    due = now + interval;
    ProgressFacts present = facts;
    present.bytes += bytesOfFile;
    present.milliseconds = now - started;
    // A character in the last column would move the cursor to the next line.
    const auto width = static_cast<std::size_t>(std::max(OutputSize().columns - 1, 1));
    CString line = ProgressLine(present, name, width);
    const std::size_t length = line.size();
    if (length < shown)
        line.Append(CString(std::min(shown, width) - std::min(length, width), u' '));
    shown = length;
    visible = this;
    WriteToConsole(CString(u"\r") + line);
}

void Progress::Hide()
{
    if (shown == 0)
        return;
    WriteToConsole(CString(u"\r") + CString(shown, u' ') + u"\r");
    shown = 0;
    visible = nullptr;
}

void HideProgress()
{
    if (visible)
        visible->Hide();
}
