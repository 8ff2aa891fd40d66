#include "commands/beep.h"

#include <windows.h>

#include "core/command_switches.h"
#include "engine/break.h"
#include "engine/inifile.h"
#include "engine/results.h"
#include "engine/state.h"
#include "platform/clock.h"
#include "platform/lazy_library.h"
#include "text/compare.h"
#include "text/numbers.h"
#include "text/words.h"

const CommandHelp beepHelp = {
    u"Sounds the speaker.",
    u"BEEP [frequency duration ...] [asterisk | exclamation | hand | question | ok]",
    u"Frequencies are in hertz (20 to 20000, 0 for silence), durations in eighteenths of a second. Without "
    u"arguments the settings BeepFreq and BeepLength tell them. The names are sounds that Windows plays for "
    u"its messages.",
    u"beep\n"
    u"beep 440 4 0 2 880 4\n"
    u"beep exclamation",
};

namespace {

constexpr unsigned millisecondsPerTick = 55;
constexpr std::int64_t lowestFrequency = 20;
constexpr std::int64_t highestFrequency = 20000;
constexpr std::int64_t longestDuration = 32767; // ticks, half an hour

struct SystemSound {
    const char16_t* name;
    UINT sound;
};
constexpr SystemSound systemSounds[] = {
    {u"ASTERISK", MB_ICONASTERISK},
    {u"EXCLAMATION", MB_ICONEXCLAMATION},
    {u"HAND", MB_ICONHAND},
    {u"QUESTION", MB_ICONQUESTION},
    {u"OK", MB_OK},
};

bool PlaySystemSound(std::u16string_view name)
{
    static LazyFunction<decltype(MessageBeep)> messageBeep(libraries::user32, "MessageBeep");
    for (const SystemSound& row : systemSounds) {
        if (!EqualNoCase(name, row.name))
            continue;
        messageBeep(row.sound);
        return true;
    }
    return false;
}

void PlayTone(std::int64_t frequency, std::int64_t ticks)
{
    const DWORD length = static_cast<DWORD>(ticks) * millisecondsPerTick;
    if (frequency == 0)
        SleepWithPoll(length, [] { return true; });
    else if (length > 0)
        Beep(static_cast<DWORD>(frequency), length);
    ThrowIfBroken();
}

std::optional<std::int64_t> WholeNumber(std::u16string_view text)
{
    std::size_t used = 0;
    const std::optional<std::int64_t> number = ReadDecimal(text, &used);
    return used == text.size() ? number : std::nullopt;
}

} // namespace

int Beep_Command(CString& arguments)
{
    const std::vector<CString> words = SplitArguments(arguments, false, CurrentSyntax());
    if (words.empty())
        PlayTone(aIniFile.BeepFreq, aIniFile.BeepLength);
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (PlaySystemSound(words[i]))
            continue;
        const std::optional<std::int64_t> frequency = WholeNumber(words[i]);
        if (!frequency || *frequency > highestFrequency || (*frequency != 0 && *frequency < lowestFrequency))
            return MVError(errors::invalidNumber, words[i]);
        std::int64_t ticks = aIniFile.BeepLength;
        if (i + 1 < words.size()) {
            const std::optional<std::int64_t> duration = WholeNumber(words[++i]);
            if (!duration || *duration < 0 || *duration > longestDuration)
                return MVError(errors::invalidNumber, words[i]);
            ticks = *duration;
        }
        PlayTone(*frequency, ticks);
    }
    return result::success;
}
