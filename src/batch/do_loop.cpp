#include "batch/do_loop.h"

#include <utility>

#include "batch/do_header.h"
#include "batch/do_values.h"
#include "batch/line_loop.h"
#include "batch/reader.h"
#include "engine/batch_entry.h"
#include "engine/break.h"
#include "engine/command_entry.h"
#include "engine/condition_entry.h"
#include "engine/results.h"
#include "engine/state.h"
#include "expand/lists.h"
#include "platform/environment.h"
#include "text/compare.h"
#include "text/words.h"

namespace {

class DoLoop {
public:
    explicit DoLoop(DoHeader& of) : header(of), tls(Tls()), outer(tls.blocks)
    {
        ++tls.blocks.doRunning;
        inner = tls.blocks;
        if (const BATCH_FRAME* frame = tls.Frame()) {
            index = tls.batchIndex;
            serial = frame->serial;
            start = frame->readOffset;
            startLine = frame->lineNumber;
        }
    }
    ~DoLoop()
    {
        // Unless a GOTO has left all blocks.
        if (tls.blocks.doRunning >= inner.doRunning)
            tls.blocks = outer;
    }
    DoLoop(const DoLoop&) = delete;
    DoLoop& operator=(const DoLoop&) = delete;

    int Run();

private:
    enum class After { NextPass, Done, Abandon };

    bool OpenValues();
    bool Begins();
    bool Ends();
    After Pass();
    After PassBody();
    After PassLines();
    After Judge(int code);
    After EndOfPass();
    bool LeftByJump() const;
    int Finish();
    int SkipToEnd();
    bool SkipText(std::u16string_view closing);
    bool Holds(const CString& condition);

    After Abandon(int code)
    {
        answer = code;
        return After::Abandon;
    }

    DoHeader& header;
    TLS_VARIABLES& tls;
    BlockState outer;
    BlockState inner; // at the start of every pass
    int index = -1;
    unsigned serial = 0;
    std::int64_t start = 0;
    unsigned startLine = 0;
    bool behindEnd = false; // the frame stands behind the ENDDO
    ValueSource values;
    std::int64_t passesLeft = 0;
    int answer = result::success;
};

int DoLoop::Run()
{
    if (!OpenValues())
        return header.hasBody ? result::error : (SkipToEnd(), result::error);
    After after = After::NextPass;
    while (after == After::NextPass && Begins()) {
        ThrowIfBroken();
        after = Pass();
        tls.loopSignal = after == After::Abandon ? tls.loopSignal : LoopSignal::None;
        if (after == After::NextPass && Ends())
            after = After::Done;
    }
    return after == After::Abandon ? answer : Finish();
}

bool DoLoop::OpenValues()
{
    if (header.kind == DoKind::Times)
        return ReadNumber(header.first, passesLeft);
    if (header.kind == DoKind::Counter)
        values = OpenCounter(header);
    else if (header.kind == DoKind::Walk)
        values = OpenWalk(header);
    else
        return true;
    return values != nullptr;
}

// What is to be done before a pass; false when there is none.
bool DoLoop::Begins()
{
    if (header.kind == DoKind::Times)
        return passesLeft-- > 0;
    if (header.kind == DoKind::While)
        return Holds(header.first);
    CString value;
    if (!values)
        return true;
    return values(value) && (WriteEnvironment(header.variable, value), true);
}

bool DoLoop::Ends() { return header.kind == DoKind::Until && Holds(header.first); }

// A condition that makes no sense ends the loop.
bool DoLoop::Holds(const CString& condition)
{
    CString text(condition);
    const int held = TestCondition(text, ConditionMode::Whole);
    if (held < 0 || !text.empty()) {
        MVError(errors::syntax, condition);
        return header.kind == DoKind::Until;
    }
    return held > 0;
}

DoLoop::After DoLoop::Pass() { return header.hasBody ? PassBody() : PassLines(); }

DoLoop::After DoLoop::PassBody() { return Judge(Command_S(header.body, 0)); }

DoLoop::After DoLoop::PassLines()
{
    BATCH_FRAME& frame = *tls.Frame();
    frame.readOffset = start;
    frame.lineNumber = startLine;
    behindEnd = false;
    CString line;
    After after = After::NextPass;
    do {
        if (!ReadBatchLine(line)) {
            tls.errorLevel = BatchTextError(errors::unfinishedBlock, u"DO", startLine);
            return Abandon(result::abandonBatch);
        }
        const int code = RunBatchLine(std::move(line));
        const bool ended = code == result::abandonBatch && tls.loopSignal != LoopSignal::None;
        after = LeftByJump() ? Abandon(result::abandonLine) : Judge(code);
        if (ended || after != After::NextPass)
            break;
    } while (true);
    return after;
}

// Whether the batch file ends, was replaced, or went on elsewhere.
bool DoLoop::LeftByJump() const
{
    if (tls.blocks.doRunning < inner.doRunning)
        return true;
    if (index < 0)
        return false;
    return tls.batchIndex != index || tls.frames[static_cast<std::size_t>(index)].serial != serial ||
           tls.frames[static_cast<std::size_t>(index)].readOffset < 0;
}

// What the result of a line or body means to the loop.
DoLoop::After DoLoop::Judge(int code)
{
    if (LeftByJump())
        return Abandon(result::abandonLine);
    if (!EndsLine(code) || (code == result::abandonLine && !header.hasBody))
        return After::NextPass;
    switch (code == result::abandonBatch ? tls.loopSignal : LoopSignal::None) {
    case LoopSignal::EndPass: return EndOfPass();
    case LoopSignal::Iterate: tls.blocks = inner; return After::NextPass;
    case LoopSignal::Leave:
        if (--tls.loopsToLeave > 0)
            return Abandon(result::abandonBatch);
        tls.blocks = inner;
        return After::Done;
    case LoopSignal::LeaveFor:
    case LoopSignal::None: break;
    }
    return Abandon(code);
}

// ENDDO, perhaps with a condition of its own.
DoLoop::After DoLoop::EndOfPass()
{
    behindEnd = true;
    tls.blocks = inner;
    const CString condition = std::exchange(tls.loopCondition, CString());
    if (condition.empty())
        return After::NextPass;
    const Word word = NextWord(condition, 0, CurrentSyntax());
    const bool until = EqualNoCase(condition.view().substr(word.start, word.length), u"UNTIL");
    const bool held = Holds(condition.Substr(word.end()));
    return held == until ? After::Done : After::NextPass;
}

int DoLoop::Finish() { return header.hasBody || behindEnd ? result::success : SkipToEnd(); }

bool DoLoop::SkipText(std::u16string_view closing)
{
    CString line;
    while (ReadBatchLine(line))
        if (EqualNoCase(line.Trim(), closing))
            return true;
    return false;
}

int DoLoop::SkipToEnd()
{
    BATCH_FRAME& frame = *tls.Frame();
    frame.readOffset = start;
    frame.lineNumber = startLine;
    const Syntax syntax = CurrentSyntax();
    CString line;
    for (int depth = 1; depth > 0;) {
        if (!ReadBatchLine(line)) {
            tls.errorLevel = BatchTextError(errors::unfinishedBlock, u"DO", startLine);
            return result::abandonBatch;
        }
        switch (ClassifyDoLine(line, syntax)) {
        case DoLine::Opens: ++depth; break;
        case DoLine::Closes: --depth; break;
        case DoLine::Text: SkipText(u"ENDTEXT"); break;
        case DoLine::Comment: SkipText(u"ENDCOMMENT"); break;
        case DoLine::Other: break;
        }
    }
    return result::success;
}

} // namespace

int RunDo(DoHeader& header) { return DoLoop(header).Run(); }
