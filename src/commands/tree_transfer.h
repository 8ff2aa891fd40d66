// Taking a directory with all that is in it to another place: COPYDIR, MOVEDIR, and MOVE of a directory.
#pragma once

#include "commands/transfer.h"

// The real name of a directory (full, with a separator at the end) that may not be there yet: links and
// substituted drives resolved as far as it exists.
CString RealDirectory(const CString& directory);

// What is known of a directory (full, with a separator at the end): attributes and times.
EntryFacts DirectoryFacts(const CString& directory);
// Gives a directory the times of another one, and its attributes besides those that it has.
void DressDirectory(const CString& directory, const EntryFacts& like);

// A directory as an argument names it, for the functions below.
TransferName TreeName(std::u16string_view argument);
// Whether the source is a directory and the target may be one; what is wrong has been told.
bool AreTrees(Transfer& transfer, const TransferName& source, const TransferName& target);

// Takes what the search selects below `source` to `target`; both are full, with a separator at the end, and
// shown as told. Directories are made with their attributes and times, and those that were moved from and are
// empty then go. Links to directories are taken as links when the search keeps them.
void TransferTree(Transfer& transfer, FILESEARCH& search, const TransferName& source,
                  const TransferName& target);

// Moves one directory to a new name: renamed within a volume, else file by file.
void MoveDirectory(Transfer& transfer, const TransferName& from, const EntryFacts& facts,
                   const TransferName& to);
