// Reading switches, and ON and OFF, in a command's handler, refusals reported. The rules of switches are
// those of text/switches.h.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "text/cstring.h"
#include "text/switches.h"

// 0 and the flag bits, or the result of the reported error for a switch that is not in `letters`.
int ReadSwitches(CString& arguments, std::u16string_view letters, std::uint64_t& flags,
                 SwitchPlace place = SwitchPlace::Anywhere);
// The readers of text/switches.h under the syntax in force.
bool TakeSwitchWord(CString& arguments, std::u16string_view name);
bool TakeSwitchText(CString& arguments, std::u16string_view name, CString& value);
// As TakeSwitchText, for switches whose text holds no switch character: "/ad/b" is two switches.
bool TakeSwitchLetters(CString& arguments, std::u16string_view name, CString& value);
bool TakeLeadingSwitch(CString& arguments, CString& one);
// Reports that the command has no such switch; answers result::error.
int RefuseSwitch(std::u16string_view one);

// Reports the usage of the command that runs and answers result::error.
int UsageError();

// Whether the text is ON or OFF, in either case and with blanks around it; nothing when it is neither.
std::optional<bool> ReadOnOff(std::u16string_view text);
CString OnOffText(bool on);
// The whole of commands that take ON, OFF or nothing: changes the state, or tells it in the message.
int ShowOrSwitch(std::u16string_view arguments, bool& state, unsigned stateMessage);
