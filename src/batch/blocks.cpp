// ActOnBlockWords of engine/batch_entry.h.
#include "batch/iff_blocks.h"
#include "core/command_switches.h"
#include "engine/batch_entry.h"
#include "engine/condition_entry.h"
#include "engine/results.h"
#include "engine/state.h"
#include "text/compare.h"
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
    if (step == BlockStep::RunRest) {
        if (word == BlockWord::Else)
            rest = command.Substr(end).TrimLeft();
        command = rest;
    }
    consumed = step == BlockStep::Skip || (step == BlockStep::RunRest && command.empty());
    return code;
}
