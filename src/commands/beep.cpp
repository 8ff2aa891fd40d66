#include "commands/beep.h"

#include <algorithm>

#include <windows.h>

#include "core/command_switches.h"
#include "engine/break.h"
#include "engine/inifile.h"
#include "engine/results.h"
#include "engine/state.h"
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

// A system sound, or a tone.
struct Sound {
    const SystemSound* system = nullptr;
    std::int64_t frequency = 0;
    std::int64_t ticks = 0;
};

const SystemSound* FindSystemSound(std::u16string_view name)
{
    for (const SystemSound& row : systemSounds)
        if (EqualNoCase(name, row.name))
            return &row;
    return nullptr;
}

void PlayTone(std::int64_t frequency, std::int64_t ticks)
{
    constexpr DWORD piece = 2000; // milliseconds: nothing ends a tone that has begun
    DWORD length = static_cast<DWORD>(ticks) * millisecondsPerTick;
    if (frequency == 0)
        return SleepOrBreak(length);
    while (length > 0) {
        const DWORD part = std::min(length, piece);
        Beep(static_cast<DWORD>(frequency), part);
        ThrowIfBroken();
        length -= part;
    }
}

std::optional<std::int64_t> WholeNumber(std::u16string_view text)
{
    std::size_t used = 0;
    const std::optional<std::int64_t> number = ReadDecimal(text, &used);
    return used == text.size() ? number : std::nullopt;
}

int ReadSounds(const std::vector<CString>& words, std::vector<Sound>& sounds)
{
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (const SystemSound* system = FindSystemSound(words[i])) {
            sounds.push_back({system});
            continue;
        }
        const std::optional<std::int64_t> frequency = WholeNumber(words[i]);
        if (!frequency || *frequency > highestFrequency || (*frequency != 0 && *frequency < lowestFrequency))
            return MVError(errors::invalidNumber, words[i]);
        std::optional<std::int64_t> ticks = aIniFile.BeepLength;
        if (i + 1 < words.size() && !FindSystemSound(words[i + 1]))
            ticks = WholeNumber(words[++i]);
        if (!ticks || *ticks < 0 || *ticks > longestDuration)
            return MVError(errors::invalidNumber, words[i]);
        sounds.push_back({nullptr, *frequency, *ticks});
    }
    return result::success;
}

void Play(const Sound& sound)
{
    static LazyFunction<decltype(MessageBeep)> messageBeep(libraries::user32, "MessageBeep");
    if (sound.system)
        messageBeep(sound.system->sound);
    else
        PlayTone(sound.frequency, sound.ticks);
}

} // namespace

int Beep_Command(CString& arguments)
{
    const std::vector<CString> words = SplitArguments(arguments, false, CurrentSyntax());
    std::vector<Sound> sounds;
    if (const int code = ReadSounds(words, sounds))
        return code;
    if (words.empty())
        sounds.push_back({nullptr, aIniFile.BeepFreq, aIniFile.BeepLength});
    for (const Sound& sound : sounds)
        Play(sound);
    return result::success;
}
