// What the arguments of commands are, as completion wants to know it. Pure.
//
// A hint is a list of words. "[1]" begins what is said of the first argument, "[2*]" of the second and all
// later ones, "[/r]" of the one behind the switch /R; without brackets it is said of all. The words are
// "dirs", "aliases", "functions", "variables", "commands", "topics" (what HELP knows), "settings", "*" for
// any file, and extensions of files.
#pragma once

#include <string_view>
#include <vector>

#include "text/cstring.h"

struct ArgumentKinds {
    bool files = false;
    bool directories = false;
    bool aliases = false;
    bool functions = false;
    bool variables = false;
    bool commands = false;
    bool topics = false;
    bool settings = false;
    std::vector<CString> extensions; // without periods; wildcards allowed

    bool Nothing() const;
};

// Of the argument that follows the words `before`. Nothing when the hint says nothing of it.
ArgumentKinds ReadCompletionHint(std::u16string_view hint, const std::vector<CString>& before,
                                 char16_t switchChar);

// The hint that the setting FileCompletion ("command:extensions; command:...") has for a command; empty for
// none.
CString FileCompletionHint(std::u16string_view setting, std::u16string_view command);

// Whether a list of names, parted by blanks or commas, wildcards allowed, has a command. Its folder and
// extension do not matter.
bool FitsCommandNames(std::u16string_view names, std::u16string_view command);

// The switches that the lines of a command's help tell about.
struct SwitchTopic {
    CString name; // as "/A"
    CString what;
};
std::vector<SwitchTopic> SwitchesOfHelp(std::u16string_view lines);
