// The files that EXCEPT keeps from the command that it runs: searches pass over them, and nothing takes their
// place or carries them away.
//
// A file counts as the same by whatever links, substituted drives and prefixes its directory is named.
#pragma once

#include <string_view>
#include <unordered_set>

#include "text/compare.h"
#include "text/cstring.h"

struct ExceptedFiles {
    void Add(std::u16string_view fullName);

    std::unordered_set<CString, NoCaseHash, NoCaseEqual> names; // in the directories that they really are in
};

// Where the directory really is, with a separator at the end; as it is when it does not exist.
CString ExceptedDirectory(std::u16string_view directory);

// Whether this thread's command is to leave the file alone.
bool IsExcepted(std::u16string_view fullName);
// The same for anything below the directory.
bool IsExceptedBelow(std::u16string_view fullName);
