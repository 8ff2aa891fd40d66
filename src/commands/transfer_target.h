// The target of COPY and MOVE as the person gave it: a directory, a pattern for new names, one file, or a
// device.
#pragma once

#include <string_view>

#include "commands/transfer.h"

class TransferTarget {
public:
    enum class Kind { Directory, Pattern, File, Device };

    // What a name without wildcards stands for: a directory when there is one of that name, always, or never.
    enum class Plain { AsIs, Directory, NewName };

    // Quotes and "..." are seen to.
    TransferTarget(std::u16string_view text, Plain plain);

    Kind GetKind() const { return kind; }
    const CString& Text() const { return text; }

    // Whether it can be a target at all. A directory that is not there is made, when a switch or the person
    // says so; what is wrong has been told.
    bool Prepare(Transfer& transfer) const;

    // Where a file of this name goes that stands `below` the place where its search began ("" or a path with
    // a separator at its end). False when the name would be too long.
    bool Place(std::u16string_view below, std::u16string_view name, TransferName& place) const;
    // Just the directory, without a name in it.
    TransferName DirectoryBelow(std::u16string_view below) const;

private:
    Kind kind = Kind::File;
    CString text;
    CString shownDirectory; // as given, with its separator
    CString directory;      // full
    CString pattern;        // of names; "" in a directory
};

// Whether a source argument may stand for several files by its form.
bool MayMeanSeveral(const CString& argument);

// Tells the progress, where somebody looks, what TransferMatches would have to do.
void ExpectMatches(Transfer& transfer, FILESEARCH& search, const CString& argument);

// Takes the files that a source argument stands for to the target, directory by directory. Those within the
// target itself are left out when it stands in the source.
void TransferMatches(Transfer& transfer, FILESEARCH& search, const CString& argument,
                     const TransferTarget& target);
