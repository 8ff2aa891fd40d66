#include "commands/delay.h"

#include "core/command_switches.h"
#include "engine/break.h"
#include "engine/output.h"
#include "engine/results.h"
#include "platform/clock.h"
#include "platform/console_keys.h"
#include "text/numbers.h"

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
