#include "commands/chcp.h"

#include "core/command_switches.h"
#include "engine/output.h"
#include "engine/results.h"
#include "lang/messages.h"
#include "platform/codepage.h"
#include "text/numbers.h"

const CommandHelp chcpHelp = {
    u"Shows or sets the active code page.",
    u"CHCP [number]",
    u"The code page is that of the console, and of text read from and written to files and pipes.",
    u"chcp\n"
    u"chcp 65001",
};

int Chcp_Command(CString& arguments)
{
    constexpr std::int64_t highest = 65535;
    arguments.Trim();
    if (!arguments.empty()) {
        std::size_t used = 0;
        const std::optional<std::int64_t> number = ReadDecimal(arguments, &used);
        if (!number || used != arguments.size() || *number < 1 || *number > highest ||
            !SetCodePage(static_cast<unsigned>(*number)))
            return MVError(errors::invalidCodePage, arguments);
    }
    const CString active = Format(u"%u", OutputCodePage());
    return PrintLine(LoadMessage(message::codePage, active)) ? result::success : MVError(0);
}
