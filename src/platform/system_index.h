// Asking the index that Windows keeps of the user's files (Windows Search).
#pragma once

#include <string_view>
#include <vector>

#include "text/cstring.h"

struct IndexQuery {
    CString directory; // full; it and all below it
    CString name;      // with "*" and "?"; "" for any
    CString text;      // that the contents hold; "" for any
};

// The full names. False when there is no index, or when it does not cover the directory: that is not told
// from finding nothing otherwise. Only letters, digits and blanks of the text are looked for, and word by
// word: what is found is to be looked at. `poll` is called between the answers, and may throw.
bool AskSystemIndex(const IndexQuery& query, std::vector<CString>& names, void (*poll)());
