#include "commands/seterror.h"

#include "core/command_switches.h"
#include "engine/results.h"
#include "engine/state.h"
#include "text/numbers.h"

const CommandHelp seterrorHelp = {
    u"Sets the error level.",
    u"SETERROR number",
    u"The number, decimal or 0x hexadecimal, is also the result of the command: && and || behind it and %_? "
    u"see it as they see that of any other command. Anything else than a number is an error, with error "
    u"level 2.",
    u"seterror 0\n"
    u"seterror 3 || echo this runs",
};

int Seterror_Command(CString& arguments)
{
    const auto number = ParseInteger(arguments);
    if (arguments.Trim().empty())
        return UsageError();
    if (!number)
        return MVError(errors::invalidNumber, arguments);
    const int level = static_cast<int>(static_cast<std::uint32_t>(*number));
    if (ResultOfExitCode(static_cast<unsigned>(level)) == level)
        return level;
    // A number that means something else as a result.
    Tls().errorLevel = level;
    return result::keepErrorLevel;
}
