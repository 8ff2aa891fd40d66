// Copying and moving one file so that nothing is ever lost: the new file is written under a name of its own
// and takes its final name when it is whole (partial_files.h); a file that is moved to another volume is
// compared byte by byte and held still before the old one goes.
#pragma once

#include <cstdint>
#include <string_view>

#include "files/file_entry.h"
#include "files/partial_files.h"
#include "platform/file_copy.h"
#include "text/cstring.h"

struct TransferManner {
    CopyManner contents;
    bool keepsReadOnly = false; // else the copy may be written to
    bool verifies = false;      // copies are compared with what they are made from
    bool rights = false;        // the rights and the owner go along
    bool overProtected = false; // targets that are read-only are replaced too
    int wipePasses = 0;         // what is moved off a volume is overwritten there so often
};

// Names are full. `to` may exist: it is replaced; the rights that somebody gave it stay. That it is another
// file than `from` is the caller's to see to.
struct TransferItem {
    CString from;
    EntryFacts facts; // of from
    CString to;
    bool replaces = false; // to exists
};

struct TransferOutcome {
    unsigned failed = 0;  // a Windows error number
    bool isThere = false; // although failed: the target is whole, but the source could not be removed
};

// Lets the partial file have the target's name; `overProtected` as above.
unsigned PutInPlace(PartialFile& partial, const CString& target, bool replaces, bool overProtected);

class FileTransfer {
public:
    // The watcher is told of the bytes that are done of the present file, and may throw.
    FileTransfer(const TransferManner& how, ByteWatcher watcher);

    TransferOutcome Copy(const TransferItem& item);
    // Within a volume the file is renamed.
    TransferOutcome Move(const TransferItem& item);

private:
    unsigned CopyBeside(const TransferItem& item, PartialFile& partial, bool asItWas);
    unsigned FindRoom(const TransferItem& item);
    unsigned Dress(const TransferItem& item, const CString& partial, bool asItWas);
    unsigned PutInPlace(const TransferItem& item, PartialFile& partial) const;
    unsigned Rename(const TransferItem& item) const;
    TransferOutcome MoveAway(const TransferItem& item);
    unsigned RemoveSource(const TransferItem& item, HeldFile& held);

    TransferManner manner;
    ByteWatcher watch;
    KeptRights kept;
    std::uint64_t room = 0; // bytes that may be written before the free space is asked for again
};
