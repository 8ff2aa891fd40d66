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

// "digits  name", "digits *name" or "algorithm (name) = digits"; nothing for any other line.
std::optional<ChecksumEntry> ReadChecksumLine(std::u16string_view line);

// Where the switch "/T" begins that is followed by a text; npos when there is none.
std::size_t FindTextSwitch(std::u16string_view arguments, char16_t switchChar);
