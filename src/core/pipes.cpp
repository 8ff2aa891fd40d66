#include "core/pipes.h"

#include <cstring>

#include "core/pipe_programs.h"
#include "engine/break.h"
#include "engine/inifile.h"
#include "engine/results.h"
#include "engine/state.h"
#include "platform/environment.h"
#include "text/format.h"

namespace {

constexpr std::size_t contextUnits = 32768;

// What the child finds in the shared block.
struct PipeContext {
    std::uint32_t reserved;
    char16_t batch[contextUnits]; // file name and parameters, each ended by a NUL, the last by two
    GLOBAL_VARIABLES globals;
};

CString ContextName(unsigned counter) { return Format(u"ORV%x.%x", GetCurrentProcessId(), counter); }

void WriteBatchContext(char16_t* target)
{
    const BATCH_FRAME* frame = Tls().Frame();
    if (!frame)
        return;
    std::size_t at = 0;
    auto put = [&](std::u16string_view text) {
        if (at + text.size() + 2 > contextUnits)
            return;
        std::memcpy(target + at, text.data(), text.size() * sizeof(char16_t));
        at += text.size() + 1;
    };
    put(frame->fileName);
    for (std::size_t i = frame->shiftCount; i < frame->arguments.size(); ++i)
        put(frame->arguments[i].empty() ? std::u16string_view(u"\"\"") : frame->arguments[i].view());
}

// A frame without a file, so that the child's references to batch parameters find their values.
void ReadBatchContext(std::u16string_view texts)
{
    auto next = [&] {
        const std::size_t end = texts.find(u'\0');
        const std::u16string_view text = texts.substr(0, end);
        texts.remove_prefix(end == texts.npos ? texts.size() : end + 1);
        return text;
    };
    const std::u16string_view fileName = next();
    if (fileName.empty())
        return;
    TLS_VARIABLES& tls = Tls();
    BATCH_FRAME frame;
    frame.SetFileName(CString(fileName));
    frame.flags = frame_flags::noFile;
    frame.echo = false;
    for (std::u16string_view text = next(); !text.empty(); text = next())
        frame.arguments.emplace_back(text);
    for (std::size_t i = 1; i < frame.arguments.size(); ++i)
        frame.argumentText.Append(i > 1 ? u" " : u"").Append(frame.arguments[i]);
    tls.frames.push_back(std::move(frame));
    tls.batchIndex = static_cast<int>(tls.frames.size()) - 1;
}

} // namespace

bool PipeChild::ShareContext()
{
    CString name;
    for (unsigned counter = 0; !context || !context.Created(); ++counter) {
        name = ContextName(counter);
        context = SharedSection::OpenOrCreate(name, sizeof(PipeContext));
        if (!context)
            return false;
    }
    auto* shared = static_cast<PipeContext*>(context.Data());
    WriteBatchContext(shared->batch);
    shared->globals = aGlobals;
    return WriteEnvironment(u"MOVAPIPE", name);
}

int PipeChild::Start(const CString& text, OwnedHandle& writeEnd)
{
    HANDLE readHandle = nullptr;
    HANDLE writeHandle = nullptr;
    SECURITY_ATTRIBUTES inheritable = {sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    if (!CreatePipe(&readHandle, &writeHandle, &inheritable, 0))
        return MVError(GetLastError());
    OwnedHandle readEnd(readHandle);
    writeEnd = OwnedHandle(writeHandle);
    if (const auto programs = ReadPipePrograms(text))
        return StartPipePrograms(*programs, std::move(readEnd), processes);
    return StartShell(text, readEnd.Get());
}

int PipeChild::StartShell(const CString& text, HANDLE input)
{
    if (!ShareContext())
        return MVError(GetLastError());
    const bool unicode = aIniFile.UnicodeOutput || aGlobals.unicodeOutput;
    ProcessStart start;
    start.program = aTexts.executable;
    start.commandLine = Format(u"\"%s\" /c %s %s", aTexts.executable, unicode ? u"/u" : u"", text);
    ChildProcess shell;
    const unsigned code = StartReading(start, input, shell);
    RemoveEnvironment(u"MOVAPIPE");
    if (code != 0)
        return MVError(code, aTexts.executable);
    processes.push_back(std::move(shell));
    return result::success;
}

int PipeChild::Wait()
{
    for (ChildProcess& process : processes)
        if (!process.Wait(ThrowIfBroken))
            return MVError(GetLastError());
    return processes.empty() ? result::success : static_cast<int>(processes.back().ExitCode().value_or(0));
}

void InheritPipeContext()
{
    CString name;
    if (!ReadEnvironment(u"MOVAPIPE", name))
        return;
    RemoveEnvironment(u"MOVAPIPE");
    const SharedSection section = SharedSection::Open(name);
    if (!section || section.Size() < sizeof(PipeContext))
        return;
    const auto* shared = static_cast<const PipeContext*>(section.Data());
    Tls().pipeChild = true;
    aGlobals.expansionMask = shared->globals.expansionMask;
    aGlobals.delayedExpansion = shared->globals.delayedExpansion;
    aGlobals.cmdExtensions = shared->globals.cmdExtensions;
    ReadBatchContext({shared->batch, contextUnits});
}
