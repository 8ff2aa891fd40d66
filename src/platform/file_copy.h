// Copying the contents of one file, comparing two, and what goes with contents: rights, links. Safety is the
// business of files/file_transfer.h; this is what it is built on.
//
// Names are taken as in file_facts.h. Everything answers 0 or a Windows error number.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include "platform/handle.h"
#include "text/cstring.h"

struct CopyManner {
    bool restartable = false; // what a failure leaves can be gone on with
    bool decrypted = false;   // contents that cannot be encrypted at the target may stand there in clear
    bool links = false;       // of a symbolic link the link, not what it leads to
};

// Is told how many bytes are done, now and then; may throw, which ends the work.
using ByteWatcher = std::function<void(std::uint64_t bytes)>;

// Data, streams, attributes and the time of the last change. A target that exists is an error, unless it is
// to be gone on with. What `watch` threw is thrown on; the target has been removed then, unless it is to be
// gone on with.
unsigned CopyFileTo(std::u16string_view from, std::u16string_view to, const CopyManner& manner,
                    const ByteWatcher& watch);

// Everything written so far is on the disk afterwards.
unsigned FlushFile(std::u16string_view name);

// ERROR_CRC when the files differ.
unsigned CompareFiles(HANDLE one, HANDLE other, const ByteWatcher& watch);
unsigned CompareFiles(std::u16string_view one, std::u16string_view other, const ByteWatcher& watch);

// A file that nobody else can change or remove while this lives, and that can be removed through it.
class HeldFile {
public:
    unsigned Open(std::u16string_view name);
    HANDLE Get() const { return file.Get(); }
    // It goes when this object does.
    unsigned Remove();

private:
    OwnedHandle file;
};

// Lets `to` have the rights that somebody gave `from`: nothing happens when it has those of its folder only,
// or where the file system keeps none. With `owner` its owner too, which takes a right that few have.
unsigned CopyRights(std::u16string_view from, std::u16string_view to, bool owner);

using SecurityBytes = std::vector<std::uint64_t>; // a security descriptor, aligned as the system wants it

// The same for file after file, without the owner: new files of one directory begin with the same rights, so
// that those are asked for once, and set only where the replaced file had others.
class KeptRights {
public:
    // `to` is new: nobody gave it rights of its own yet.
    unsigned Carry(std::u16string_view from, std::u16string_view to);

private:
    CString directory;
    SecurityBytes ofNewFiles;
};

// A directory with the attributes of another one, or the same link when that one is a link.
unsigned MakeDirectoryLike(std::u16string_view model, std::u16string_view name);
