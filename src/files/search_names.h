// Taking apart the name that a command is given: directory, pattern, include list, regular expression. Pure.
#pragma once

#include <string_view>
#include <vector>

#include "text/cstring.h"

struct SearchName {
    CString text;        // without quotes; "" when the name ended in its directory
    bool quoted = false; // ";" and "=" are ordinary characters of it

    bool IsRegex() const { return text.view().starts_with(u"::"); }
    // A plain name: it can mean one entry only, and is not asked about list marks, sets or wildcards.
    bool IsLiteral() const;
    // What files/wildcards.h is to compare with.
    CString Pattern() const;
};

// What is looked for in one directory.
struct SearchTarget {
    CString
        directory; // as it was given, "..." spelled out, with its separator or colon; "" for the current one
    std::vector<SearchName> names;
};

// "src\*.c;*.h;doc\*.txt" becomes the names *.c and *.h in src\ and *.txt in doc\: a name of the list without
// a directory is looked for where the one before it is. A regular expression ("::" at the start, or behind
// the directory) takes the rest of the text, semicolons included. Names in quotes are not parted.
std::vector<SearchTarget> SplitSearchNames(std::u16string_view argument);
