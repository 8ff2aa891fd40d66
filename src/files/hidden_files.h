// Hiding files for a while by their attributes, so that programs pass over them.
//
// What is hidden stands in a record beside the user's own files as long as it is hidden. When the shell is
// killed meanwhile, the record is left, and RestoreHidden of any later shell puts the attributes back.
#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "text/cstring.h"

class HiddenFiles {
public:
    HiddenFiles() = default;
    HiddenFiles(const HiddenFiles&) = delete;
    HiddenFiles& operator=(const HiddenFiles&) = delete;
    ~HiddenFiles()
    {
        CString ignored;
        Restore(ignored);
    }

    // Hides those that are not hidden yet; names are full. 0, or the Windows error number of the first that
    // failed, whose name is then in `failed`; those before it are visible again.
    unsigned Hide(const std::vector<CString>& names, CString& failed);
    // Makes visible again what Hide has hidden. 0, or the Windows error number of the last that failed, whose
    // name is then in `failed`; the record stays for RestoreHidden.
    unsigned Restore(CString& failed);

private:
    CString record;
    std::vector<CString> hidden;
};

// Makes visible what shells that have ended left hidden, and reports each name.
void RestoreHidden(const std::function<void(const CString&)>& restored);
