#include "core/command_switches.h"

#include <algorithm>

#include "core/command_lookup.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "lang/messages.h"
#include "text/compare.h"

int ReadSwitches(CString& arguments, std::u16string_view letters, std::uint64_t& flags, SwitchPlace place)
{
    SwitchRead read = GetSwitches(arguments, letters, place, CurrentSyntax());
    flags = read.flags;
    return read.refused.empty() ? result::success : MVError(errors::invalidSwitch, read.refused);
}

bool TakeSwitchWord(CString& arguments, std::u16string_view name)
{
    return GetMultiCharSwitch(arguments, name, CurrentSyntax());
}

bool TakeSwitchText(CString& arguments, std::u16string_view name, CString& value)
{
    return GetStringSwitch(arguments, name, value, CurrentSyntax());
}

bool TakeSwitchLetters(CString& arguments, std::u16string_view name, CString& value)
{
    if (!TakeSwitchText(arguments, name, value))
        return false;
    const std::size_t next = value.Find(CurrentSyntax().switchChar);
    if (next != CString::npos) {
        arguments.Insert(0, value.Substr(next) + u" ");
        value.Truncate(next);
    }
    return true;
}

bool TakeLeadingSwitch(CString& arguments, CString& one)
{
    return TakeLeadingSwitch(arguments, one, CurrentSyntax());
}

int RefuseSwitch(std::u16string_view one)
{
    return MVError(errors::invalidSwitch, CString(1, CurrentSyntax().switchChar) + one);
}

namespace {

// The forms of the command, a line each: the lines of its usage that begin with its name. What else stands
// there are the lines of a block.
CString UsageForms(std::u16string_view usage)
{
    constexpr std::u16string_view nextForm = u"\r\n       "; // below the first one
    const std::u16string_view name = usage.substr(0, usage.find_first_of(u" \n"));
    CString forms;
    while (!usage.empty()) {
        const std::size_t end = std::min(usage.find(u'\n'), usage.size());
        const std::u16string_view line = usage.substr(0, end);
        if (line.substr(0, line.find(u' ')) == name)
            forms.Append(forms.empty() ? std::u16string_view() : nextForm).Append(line);
        usage.remove_prefix(std::min(end + 1, usage.size()));
    }
    return forms;
}

} // namespace

int UsageError()
{
    const BUILTIN* row = nullptr;
    if (FindInternalCommand(Tls().commandName, true, &row) < 0 || !row->help)
        return MVError(errors::syntax, Tls().commandName);
    constexpr int behindName = 9; // columns
    ShowMessage(LoadMessage(message::usage, UsageForms(row->help->usage)), behindName);
    return result::error;
}

std::optional<bool> ReadOnOff(std::u16string_view text)
{
    const CString word = CString(text).Trim();
    const bool on = EqualNoCase(word, u"ON");
    return on || EqualNoCase(word, u"OFF") ? std::optional(on) : std::nullopt;
}

CString OnOffText(bool on) { return LoadMessage(on ? message::on : message::off); }

int ShowOrSwitch(std::u16string_view arguments, bool& state, unsigned stateMessage)
{
    if (CString(arguments).Trim().empty())
        return PrintLine(LoadMessage(stateMessage, OnOffText(state))) ? result::success : MVError(0);
    const auto wanted = ReadOnOff(arguments);
    if (!wanted)
        return UsageError();
    state = *wanted;
    return result::success;
}
