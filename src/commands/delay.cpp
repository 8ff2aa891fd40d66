#include "commands/delay.h"

#include "core/command_switches.h"
#include "engine/break.h"
#include "engine/output.h"
#include "engine/results.h"
#include "platform/clock.h"
#include "platform/console_keys.h"
#include "text/compare.h"

const CommandHelp delayHelp = {
    u"Waits for a time.",
    u"DELAY [/B /F /M] [time]",
    u"/B  a key ends the wait\n"
    u"/F  keys typed before the wait are dropped\n"
    u"/M  the time is in milliseconds instead of seconds\n"
    u"Seconds may have a fraction. Without a time the wait is one second.",
    u"delay 2.5\n"
    u"delay /b 60",
};

namespace {

enum : std::uint64_t { untilKey = 1, flushKeys = 2, inMilliseconds = 4 };

// "12", "2.5" or ".5" in units of `scale` milliseconds.
std::optional<std::uint64_t> ParseDuration(std::u16string_view text, std::uint64_t scale)
{
    constexpr std::uint64_t longest = 4'000'000'000; // units
    std::uint64_t whole = 0;
    std::size_t at = 0;
    for (; at < text.size() && IsDigit(text[at]); ++at)
        if ((whole = whole * 10 + (text[at] - u'0')) > longest)
            return std::nullopt;
    std::uint64_t duration = whole * scale;
    const bool point = at < text.size() && (text[at] == u'.' || text[at] == u',');
    if (point)
        for (std::uint64_t unit = scale / 10; ++at < text.size() && IsDigit(text[at]); unit /= 10)
            duration += (text[at] - u'0') * unit;
    const bool anyDigit = text.size() > (point ? 1u : 0u);
    return anyDigit && at == text.size() ? std::optional(duration) : std::nullopt;
}

bool GoOn()
{
    ThrowIfBroken();
    return true;
}

bool GoOnWithoutKey()
{
    ThrowIfBroken();
    if (!IsKeyWaiting())
        return true;
    ReadKey(ThrowIfBroken);
    return false;
}

} // namespace

int Delay_Command(CString& arguments)
{
    std::uint64_t flags = 0;
    if (const int code = ReadSwitches(arguments, u"BFM", flags))
        return code;
    const std::uint64_t scale = flags & inMilliseconds ? 1 : 1000;
    arguments.Trim();
    const std::optional<std::uint64_t> time =
        arguments.empty() ? std::optional(std::uint64_t{1000}) : ParseDuration(arguments, scale);
    if (!time)
        return MVError(errors::invalidNumber, arguments);
    const bool keyboard = IsConsole(0);
    if (keyboard && (flags & flushKeys))
        DropWaitingKeys();
    SleepWithPoll(*time, keyboard && (flags & untilKey) ? GoOnWithoutKey : GoOn);
    return result::success;
}
