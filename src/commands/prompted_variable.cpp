#include "commands/prompted_variable.h"

#include "core/command_switches.h"
#include "engine/results.h"

int TakePromptAndVariable(CString& text, CString& prompt, CString& variable)
{
    text.TrimRight();
    const std::size_t at = text.view().find_last_of(u" \t") + 1; // 0 without a blank
    CString name = text.Substr(at);
    if (name.front() != u'%')
        return UsageError();
    name.Erase(0, 1).TrimRight(u"%");
    if (name.empty() || name.Find(u'=') != CString::npos)
        return UsageError();
    variable = name;
    prompt = text.Substr(0, at);
    CString quoted = prompt;
    if (quoted.TrimRight().size() > 1 && quoted.front() == u'"' && quoted.back() == u'"')
        prompt = quoted.Substr(1, quoted.size() - 2);
    return result::success;
}
