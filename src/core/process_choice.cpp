#include "core/process_choice.h"

#include "files/wildcards.h"
#include "platform/process_list.h"
#include "text/compare.h"
#include "text/numbers.h"
#include "text/path_names.h"

bool ProgramMatches(std::u16string_view wanted, std::u16string_view program)
{
    return WildcardComparison(wanted, program, false, true) == 0 ||
           WildcardComparison(wanted, program.substr(0, ExtensionStart(program)), false, true) == 0;
}

unsigned FindProcess(std::u16string_view text)
{
    std::size_t used = 0;
    const auto number = BeginsNoCase(text, u"0x") ? ReadInteger(text, &used) : ReadDecimal(text, &used);
    if (number && used == text.size()) {
        const bool possible = *number > 0 && *number <= 0xFFFFFFFFll;
        return possible && IsProcess(static_cast<unsigned>(*number)) ? static_cast<unsigned>(*number) : 0;
    }
    for (const ProcessEntry& entry : AllProcesses())
        if (entry.process != 0 && ProgramMatches(text, entry.program))
            return entry.process;
    return 0;
}
