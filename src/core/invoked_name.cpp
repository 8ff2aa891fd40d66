#include "core/invoked_name.h"

#include <algorithm>

#include "text/words.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;

// The first of the units behind the first character and outside double quotes.
std::size_t FindOutsideQuotes(std::u16string_view name, std::u16string_view units)
{
    bool quoted = false;
    for (std::size_t at = 0; at < name.size(); ++at) {
        if (name[at] == u'"')
            quoted = !quoted;
        else if (at > 0 && !quoted && units.find(name[at]) != npos)
            return at;
    }
    return npos;
}

} // namespace

InvokedName ReadInvokedName(std::u16string_view command, std::u16string_view firstWord, const Syntax& syntax)
{
    const Word word = NextWord(command, 0, syntax);
    command.remove_prefix(word.start);
    const std::u16string_view name =
        command.starts_with(firstWord) ? firstWord : command.substr(0, word.length);
    const std::size_t length = std::min(FindOutsideQuotes(name, u"`="), name.size());
    return {CString(name.substr(0, length)), CString(command.substr(length))};
}

bool CutAtSwitch(InvokedName& call, const Syntax& syntax)
{
    const std::size_t cut = FindOutsideQuotes(call.name, std::u16string_view(&syntax.switchChar, 1));
    if (cut == npos)
        return false;
    call.arguments.Insert(0, call.name.view().substr(cut));
    call.name.Truncate(cut);
    return true;
}
