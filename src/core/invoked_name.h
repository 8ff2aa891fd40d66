// Parting a command into the name of a program and the text that the program gets. Pure.
#pragma once

#include <string_view>

#include "text/cstring.h"
#include "text/syntax.h"

struct InvokedName {
    CString name;      // as written, quotes included
    CString arguments; // everything behind it, blanks in front included
};

// Parts a command behind its first word, which is given because it may hold blanks that were escaped. The
// name ends early at a back-quote or "=" behind its first character, outside double quotes.
InvokedName ReadInvokedName(std::u16string_view command, std::u16string_view firstWord, const Syntax& syntax);

// Cuts the name at its first switch character and gives the rest to the arguments ("list/w" is "list" with
// "/w"); false when there is nothing to cut.
bool CutAtSwitch(InvokedName& call, const Syntax& syntax);
