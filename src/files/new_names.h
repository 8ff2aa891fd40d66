// Which names are new in the directory that files go to: to ask for each name that is not there costs the
// system a search of the whole directory each time, so where many new files go its names are read once.
#pragma once

#include <string_view>
#include <unordered_set>

#include "text/compare.h"
#include "text/cstring.h"

class NewNames {
public:
    // Whether the directory (with a separator at the end) had no such name when its names were read; false as
    // long as they were not. Others may have made it since: whoever relies on it must not replace anything.
    bool Has(std::u16string_view ofDirectory, std::u16string_view name);
    // A name of that directory was asked for and was not there.
    void NoteMissing();
    // The name is there now.
    void NoteMade(std::u16string_view name);
    // Somebody else writes there, too. False when nothing was known anyway.
    bool Forget();

private:
    void ReadNames();

    CString directory;
    unsigned missing = 0;
    bool isRead = false;
    std::unordered_set<CString, NoCaseHash, NoCaseEqual> names;
};
