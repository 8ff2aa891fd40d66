#include "console/key_input.h"
#include "engine/console_entry.h"
#include "engine/output.h"
#include "engine/results.h"
#include "platform/console.h"
#include "text/compare.h"

namespace {

constexpr char16_t escapeKey = 0x1B;

char16_t ReadAnswer(std::u16string_view answers, char16_t unattended)
{
    for (;;) {
        const ConsoleInput input = ReadKeyOrBreak();
        if (input.kind != InputKind::Key || input.key.unit == escapeKey)
            return unattended;
        const char16_t letter = UpperCase(input.key.unit);
        if (letter != 0 && answers.find(letter) != answers.npos)
            return letter;
        honk();
    }
}

} // namespace

char16_t QueryInputChar(unsigned number, std::u16string_view text, std::u16string_view answers,
                        char16_t unattended)
{
    if (!IsConsole(0))
        return unattended;
    WriteToConsole(LoadMessage(number, text));
    const char16_t answer = ReadAnswer(answers, unattended);
    WriteToConsole(CString(1, answer) + u"\r\n");
    return answer;
}

bool WaitForKey() { return IsConsole(0) && ReadKeyOrBreak().kind == InputKind::Key; }
