// COPY of several sources into one target, and from and to devices.
#pragma once

#include <vector>

#include "commands/copy_arguments.h"
#include "commands/transfer.h"
#include "commands/transfer_target.h"

struct JoinedPiece {
    CString name; // full, or of a device
    CString shown;
    Contents contents = Contents::AsTheyStand;
    bool chosen = false; // by its very name
    EntryFacts facts;    // of files
};

// Adds what a source argument stands for; false when that is nothing, which has been told.
bool AddPieces(Transfer& transfer, FILESEARCH& search, const CopySource& source,
               std::vector<JoinedPiece>& pieces);

// Writes the pieces one behind the other. A file is replaced as a whole or not at all.
void WriteJoined(Transfer& transfer, const std::vector<JoinedPiece>& pieces, const TransferTarget& target,
                 Contents targetContents);

// Whether the name is one that only this way of copying takes.
bool IsDeviceSource(std::u16string_view text);
