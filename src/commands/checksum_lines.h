// Lines of checksum files, and the text that HASH is given. Pure.
#pragma once

#include <optional>
#include <string_view>

#include "files/digest.h"

struct ChecksumEntry {
    CString digits;
    CString name;
    std::optional<DigestKind> kind; // when the line tells
};

// "digits  name", "digits *name", "algorithm (name) = digits" or, with eight digits, "name digits"; nothing
// for any other line. In the first three a backslash before it all says that backslashes in the name are
// doubled.
std::optional<ChecksumEntry> ReadChecksumLine(std::u16string_view line);

// Where the switch "/T" begins that is followed by a text; npos when there is none.
std::size_t FindTextSwitch(std::u16string_view arguments, char16_t switchChar);
