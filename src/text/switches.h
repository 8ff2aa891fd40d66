// Reading the switches of a command out of its argument text.
//
// A switch is a word that begins with the switch character outside quotes; one word may hold several
// ("/a/b"). Whatever is recognised is cut out of the text, so that the file names and numbers remain. A
// word of three switch characters ends the switches and is removed. Commands call the wrappers in
// core/command_switches.h, which report what is refused here.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "text/cstring.h"
#include "text/syntax.h"

struct SwitchRead {
    std::uint64_t flags = 0; // bit n for the nth letter of the list
    CString refused; // the first switch that is not in the list, switch character included; else empty
};

enum class SwitchPlace { Anywhere, Leading };

// Single-letter switches of the list `letters` (case does not count, e.g. u"PQS"). A letter followed by '*'
// in the list may be followed by text in the command ("/A*" takes "/a:hs"): such switches must have been
// removed by GetStringSwitch before. The switch character followed by '?' is left alone.
SwitchRead GetSwitches(CString& arguments, std::u16string_view letters, SwitchPlace place,
                       const Syntax& syntax);

// Removes every switch spelled `name` as a whole ("unbuilt" for /unbuilt); true when there was one.
bool GetMultiCharSwitch(CString& arguments, std::u16string_view name, const Syntax& syntax);

// Removes the first switch that begins with `name` and takes text: "/Nvalue", "/N:value", "/N=value",
// "/N"quoted text"". True when it was there; `value` receives the text, without quotes around it.
bool GetStringSwitch(CString& arguments, std::u16string_view name, CString& value, const Syntax& syntax);

// For commands of which a text follows the switches. Takes the switch at the front of the arguments into
// `one`, without its switch character and with quotes as they stand; false when none stands there. It ends
// at a blank or at the next switch character outside quotes; behind ':' or '=' only at a blank. "///" ends
// the switches and is removed.
bool TakeLeadingSwitch(CString& arguments, CString& one, const Syntax& syntax);
// What follows `name` in such a switch: "30" for "/T30", "/T:30", "/T=30" or "/T:"30"". Nothing when the
// switch does not begin with the name.
std::optional<CString> SwitchValue(std::u16string_view one, std::u16string_view name);

// Cuts `count` units out of the arguments, together with the blanks that would be left doubled.
void CutSwitch(CString& arguments, std::size_t at, std::size_t count);
