// Files that are still being written: they stand beside the file that they are to become, under a name of
// their own, and take its place when they are complete. Under a file's own name stands the old one or the new
// one, never half of either.
//
// The name tells whose it is, so that one left behind by a shell that was killed can be told from one that is
// being written, and goes when the next file is written into its folder.
#pragma once

#include <string_view>

#include "text/cstring.h"

class PartialFile {
public:
    // A new name in the folder (with a separator at the end, or ""); the file itself is the caller's to make.
    explicit PartialFile(std::u16string_view directory);
    // The same name each time for one purpose, so that another attempt can go on with what was kept.
    PartialFile(std::u16string_view directory, std::u16string_view purpose);
    ~PartialFile(); // removes the file unless it has taken its place
    PartialFile(const PartialFile&) = delete;
    PartialFile& operator=(const PartialFile&) = delete;

    const CString& Name() const { return name; }

    // Gives the file its final name. One that has the name already goes, or is an error unless `replace`.
    // 0 or a Windows error number: then everything is as before.
    unsigned TakePlaceOf(std::u16string_view target, bool replace);
    // The file stays under its partial name.
    void Keep() { name.Clear(); }

private:
    CString name;
};

// Whether a file of that name (without directory) is a partial one, anybody's. Commands that look for files
// to work on leave them alone.
bool IsPartialFileName(std::u16string_view name);

// Removes the partial files in the folder (as above) whose shells are gone.
void RemoveAbandonedFiles(std::u16string_view directory);
