#include "core/command_switches.h"

#include "core/command_lookup.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "lang/messages.h"

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

int UsageError()
{
    const BUILTIN* row = nullptr;
    if (FindInternalCommand(Tls().commandName, true, &row) < 0 || !row->help)
        return MVError(errors::syntax, Tls().commandName);
    // The first line tells the form; /? shows the rest.
    const std::u16string_view usage(row->help->usage);
    CString text = LoadMessage(message::usage);
    const std::size_t place = text.Find(u"%1");
    text.Replace(place, place == CString::npos ? 0 : 2, usage.substr(0, usage.find(u'\n')));
    PrintError(text.Append(u"\r\n"));
    return result::error;
}
