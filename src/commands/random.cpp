#include "commands/random.h"

#include <vector>

#include "core/command_switches.h"
#include "engine/break.h"
#include "engine/output.h"
#include "engine/random.h"
#include "engine/results.h"
#include "engine/state.h"
#include "text/numbers.h"
#include "text/words.h"

const CommandHelp randomHelp = {
    u"Prints random whole numbers.",
    u"RANDOM [/Ncount] [/Sseed] [low high]",
    u"/N  so many numbers, a line each; 1 otherwise\n"
    u"/S  begins a sequence that is the same for the same seed; %RANDOM and %@RANDOM go on in it\n"
    u"The numbers run from low to high, both included; without them from 0 to 32767. They are no secret to "
    u"anyone who knows some of them: make no passwords with them. The result is 0, and 2 when a number "
    u"makes no sense.",
    u"random 1 6\n"
    u"random /s42 /n5 1 49",
};

namespace {

// The number of a switch; true also when the switch is not there.
bool TakeNumberSwitch(CString& arguments, std::u16string_view name, std::optional<std::int64_t>& number)
{
    CString text;
    if (!TakeSwitchText(arguments, name, text))
        return true;
    number = ParseInteger(text);
    return number.has_value();
}

} // namespace

int Random_Command(CString& arguments)
{
    std::optional<std::int64_t> count = 1;
    std::optional<std::int64_t> seed;
    if (!TakeNumberSwitch(arguments, u"N", count) || !TakeNumberSwitch(arguments, u"S", seed) || *count < 1)
        return UsageError();
    const std::vector<CString> words = SplitArguments(arguments, true, CurrentSyntax());
    if (!words.empty() && words.size() != 2)
        return UsageError();
    const auto low = words.empty() ? std::optional<std::int64_t>(0) : ParseInteger(words[0]);
    const auto high = words.empty() ? std::optional<std::int64_t>(32767) : ParseInteger(words[1]);
    if (!low || !high || *high < *low)
        return MVError(errors::invalidNumber, arguments);
    if (seed)
        SeedRandom(static_cast<std::uint64_t>(*seed));
    for (std::int64_t left = *count; left > 0; --left) {
        ThrowIfBroken();
        if (!PrintFormat(u"%d\r\n", RandomBetween(*low, *high)))
            return MVError(0);
    }
    return result::success;
}
