// Mirroring: deleting what a target has and its source has not (COPY /W, COPYDIR /W).
#pragma once

#include "commands/transfer.h"

// Removes one that `source` (full, with a separator at the end) lacks, a directory with all that is in it;
// links are removed, never followed. Asks, shows and counts.
void RemoveExtra(Transfer& transfer, const CString& source, const TransferName& name,
                 const EntryFacts& facts);

// Whether a file of that name belongs to nobody's files: partial files, and description files, whose entries
// follow the files they describe.
bool IsPassedOver(const CString& name);

// Files of the target directory (full, with a separator at the end) that match the source argument by their
// names and do not stand in the source directory.
void RemoveExtraFiles(Transfer& transfer, const CString& argument, const CString& source,
                      const TransferName& target);

// Everything below the target that the source lacks.
void RemoveExtraTree(Transfer& transfer, const CString& source, const TransferName& target);
