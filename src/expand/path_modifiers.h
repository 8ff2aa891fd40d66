// The "~" modifiers of parameters and loop variables ("%~dpnx1", "%%~zi", "%~$PATH:1").
//
// Reading the letters and putting the result together is decided here; what the file system knows is asked
// through PathSource.
#pragma once

#include <cstddef>
#include <string_view>

#include "text/cstring.h"

// What an existing file or directory shows; every text empty when there is none.
struct PathFacts {
    CString attributes; // "-ra------": directory, read-only, archive, hidden, system and so on
    CString time;       // last write, date and time as the user's settings show them
    CString size;       // bytes
};

class PathSource {
public:
    virtual ~PathSource() = default;
    virtual CString FullPath(std::u16string_view name) = 0;
    virtual CString ShortPath(std::u16string_view fullPath) = 0;
    virtual PathFacts Facts(std::u16string_view fullPath) = 0;
    // The full name of `name` in one of the directories that the environment variable lists, or empty.
    virtual CString FindInPath(std::u16string_view variable, std::u16string_view name) = 0;
};

// The modifiers as they were written, and the unit behind them that names the parameter or loop variable.
struct PathModifiers {
    std::u16string_view letters;    // of "ADFNPSTXZ", in either case
    std::u16string_view searchList; // the variable of "$name:", empty without one
    std::size_t target = 0;         // index of the digit or letter behind them
};

// Reads the modifiers at the start of `text`, which begins behind the "~". `isTarget(index)` tells whether
// the unit at that place names something. The longest reading that leaves a target wins; false without one.
template <typename IsTarget>
bool ReadPathModifiers(std::u16string_view text, IsTarget isTarget, PathModifiers& modifiers)
{
    constexpr std::u16string_view known = u"ADFNPSTXZadfnpstxz";
    std::size_t end = 0;
    while (end < text.size() && known.find(text[end]) != known.npos)
        ++end;
    modifiers.letters = text.substr(0, end);
    if (end < text.size() && text[end] == u'$') {
        // A variable's name is no longer than that.
        const std::size_t colon = text.substr(0, end + 1024).find(u':', end);
        if (colon == text.npos || colon == end + 1 || colon + 1 >= text.size() || !isTarget(colon + 1))
            return false;
        modifiers.searchList = text.substr(end + 1, colon - end - 1);
        modifiers.target = colon + 1;
        return true;
    }
    for (std::size_t at = end + 1; at-- > 0;) {
        if (at < text.size() && isTarget(at)) {
            modifiers.letters = text.substr(0, at);
            modifiers.target = at;
            return true;
        }
    }
    return false;
}

// The value with the modifiers applied; without any it only loses the double quotes around it.
CString ApplyPathModifiers(std::u16string_view value, const PathModifiers& modifiers, PathSource& source);

// The parts of a full path: "C:" or "\\server\share", "\dir\", "name" and ".ext".
struct PathParts {
    std::u16string_view drive, directory, name, extension;
};
PathParts SplitPath(std::u16string_view path);
