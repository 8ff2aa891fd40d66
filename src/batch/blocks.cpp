// ActOnBlockWords and QueryLoopPart of engine/batch_entry.h.
#include <algorithm>

#include "batch/do_header.h"
#include "batch/iff_blocks.h"
#include "core/command_switches.h"
#include "engine/batch_entry.h"
#include "engine/condition_entry.h"
#include "engine/expansion_entry.h"
#include "engine/results.h"
#include "engine/state.h"
#include "text/compare.h"
#include "text/numbers.h"
#include "text/words.h"

namespace {

// Tests the condition of an ELSEIFF, "THEN" included, and leaves what follows it. A condition that makes no
// sense does not hold.
bool TestBranch(CString& text, int& code)
{
    const int answer = TestCondition(text, ConditionMode::Iff);
    const Word then = NextWord(text, 0, CurrentSyntax());
    if (answer < 0 || !EqualNoCase(text.view().substr(then.start, then.length), u"THEN")) {
        Tls().commandName = u"IFF";
        code = UsageError();
        return false;
    }
    text.Erase(0, then.end()).TrimLeft();
    return answer > 0;
}

LoopSignal SignalOf(LoopWord word)
{
    switch (word) {
    case LoopWord::EndDo: return LoopSignal::EndPass;
    case LoopWord::Iterate: return LoopSignal::Iterate;
    case LoopWord::Leave: return LoopSignal::Leave;
    case LoopWord::LeaveFor: return LoopSignal::LeaveFor;
    case LoopWord::None: break;
    }
    return LoopSignal::None;
}

// Tells the loop that runs what to do and ends the line, and with it whatever stands between the word and the
// loop. Outside loops the words are ordinary commands.
int ActOnLoopWord(CString& command, bool& consumed)
{
    TLS_VARIABLES& tls = Tls();
    std::size_t end = 0;
    const LoopWord word = ReadLoopWord(command, end);
    const bool inLoop = word == LoopWord::LeaveFor ? tls.blocks.forRunning > 0 : tls.blocks.doRunning > 0;
    if (word == LoopWord::None || !inLoop)
        return result::success;
    consumed = true;
    CString rest = command.Substr(end).Trim();
    tls.loopSignal = SignalOf(word);
    if (word == LoopWord::EndDo)
        tls.loopCondition = rest;
    if (word == LoopWord::Leave && VariableExpansion(rest, true) == 0)
        tls.loopsToLeave = static_cast<int>(
            std::clamp<std::int64_t>(ReadInteger(rest).value_or(1), 1, tls.blocks.doRunning));
    return result::abandonBatch;
}

} // namespace

int ActOnBlockWords(CString& command, bool& consumed)
{
    std::size_t end = 0;
    const BlockWord word = ReadBlockWord(command, end);
    int code = result::success;
    CString rest;
    auto condition = [&] {
        rest = command.Substr(end);
        return TestBranch(rest, code);
    };
    const BlockStep step = ActOnBlockWord(Tls().blocks, word, condition);
    if (step == BlockStep::Run)
        return ActOnLoopWord(command, consumed = false);
    if (step == BlockStep::RunRest) {
        if (word == BlockWord::Else)
            rest = command.Substr(end).TrimLeft();
        command = rest;
    }
    consumed = step == BlockStep::Skip || (step == BlockStep::RunRest && command.empty());
    return code;
}

LoopPart QueryLoopPart(std::u16string_view command)
{
    const Syntax syntax = CurrentSyntax();
    const DoLine line = ClassifyDoLine(command, syntax);
    if (line == DoLine::Closes)
        return LoopPart::Closes;
    if (line != DoLine::Opens)
        return LoopPart::None;
    // A mistake, and a question for help, are not waited for.
    const std::u16string_view behind = TailFromArgument(command, 1, syntax);
    DoHeader header;
    const bool loop = !behind.starts_with(syntax.switchChar) && ReadDoHeader(behind, syntax, header);
    return loop ? LoopPart::Opens : LoopPart::None;
}
