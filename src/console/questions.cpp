#include "console/key_input.h"
#include "engine/console_entry.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "platform/console.h"
#include "platform/standard_handles.h"
#include "text/compare.h"

namespace {

constexpr unsigned escape = 0x1B; // as a key and as a character; not every console tells both

char16_t ReadAnswer(std::u16string_view answers, char16_t unattended)
{
    for (;;) {
        const ConsoleInput input = ReadKeyOrBreak();
        const KeyPress& key = input.key;
        if (input.kind != InputKind::Key || key.virtualKey == escape || key.unit == escape)
            return unattended;
        const char16_t letter = UpperCase(key.unit);
        if (letter != 0 && answers.find(letter) != answers.npos)
            return letter;
        honk();
    }
}

// Lines that are no answer are passed over, as a person's wrong keys are.
char16_t ReadGivenAnswer(std::u16string_view answers, char16_t unattended)
{
    CString line;
    while (ReadInputLine(line, {}) == InputOutcome::Given) {
        const char16_t letter = UpperCase(line.TrimLeft().front());
        if (letter != 0 && answers.find(letter) != answers.npos)
            return letter;
    }
    return unattended;
}

} // namespace

bool MayAsk()
{
    if (IsConsole(0))
        return true;
    const HandleKind kind = KindOfHandle(StandardHandle(0));
    return (Tls().pipeChild || Tls().inputRedirections > 0) &&
           (kind == HandleKind::Pipe || kind == HandleKind::File);
}

char16_t QueryInputChar(unsigned number, std::u16string_view text, std::u16string_view answers,
                        char16_t unattended)
{
    if (!MayAsk())
        return unattended;
    WriteToConsole(LoadMessage(number, text));
    const char16_t answer =
        IsConsole(0) ? ReadAnswer(answers, unattended) : ReadGivenAnswer(answers, unattended);
    WriteToConsole(CString(1, answer) + u"\r\n");
    return answer;
}

bool WaitForKey() { return IsConsole(0) && ReadKeyOrBreak().kind == InputKind::Key; }
