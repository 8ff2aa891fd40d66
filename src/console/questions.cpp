#include "engine/break.h"
#include "engine/console_entry.h"
#include "engine/output.h"
#include "engine/results.h"
#include "platform/console.h"
#include "platform/console_keys.h"
#include "text/compare.h"

namespace {

constexpr char16_t escapeKey = 0x1B;
constexpr char16_t controlC = 3; // arrives as a key when a program has left the console in that mode

std::optional<KeyPress> ReadKeyOrBreak()
{
    const std::optional<KeyPress> key = ReadKey(ThrowIfBroken);
    if (key && key->unit == controlC) {
        MarkBreak();
        ThrowIfBroken();
    }
    return key;
}

char16_t ReadAnswer(std::u16string_view answers, char16_t unattended)
{
    for (;;) {
        const std::optional<KeyPress> key = ReadKeyOrBreak();
        if (!key || key->unit == escapeKey)
            return unattended;
        const char16_t letter = UpperCase(key->unit);
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

bool WaitForKey() { return IsConsole(0) && ReadKeyOrBreak().has_value(); }
