// The syntax characters and parsing switches in force while a line is taken apart.
//
// Pure rooms get them as an argument; the engine fills one from the settings and the SETDOS mask once per
// line (CurrentSyntax in engine/state.h).
#pragma once

struct Syntax {
    char16_t commandSep = u'&';
    char16_t escapeChar = u'^';
    char16_t switchChar = u'/';
    char16_t parameterChar = u'$';
    bool escapes = true;        // the escape character is in force
    bool openQuotes = false;    // .BAT and .CMD: an odd double quote runs to the end of its line
    bool cmdDelimiters = false; // .BAT and .CMD: ';' and '=' part arguments too
    bool duplicateBugs = true;  // the compatibility behaviours of the command line

    bool operator==(const Syntax&) const = default;
};
