// Reading switches in a command's handler, refusals reported. The rules are those of text/switches.h.
#pragma once

#include <cstdint>
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
