// The attribute switch (/A) of the file commands: its letters become masks that a file's attributes are
// tested with. Pure.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "text/cstring.h"

namespace file_attribute {
constexpr std::uint32_t readOnly = 0x1;
constexpr std::uint32_t hidden = 0x2;
constexpr std::uint32_t system = 0x4;
constexpr std::uint32_t directory = 0x10;
constexpr std::uint32_t archive = 0x20;
constexpr std::uint32_t reparsePoint = 0x400;
} // namespace file_attribute

struct AttributeMasks {
    // Files that bear one of the marked attributes (hidden and system) are passed over unless it is in here.
    std::uint32_t included = usual;
    std::uint32_t required = 0;
    std::uint32_t forbidden = 0;
    std::uint32_t anyOf = 0; // one of these at least, when there are any

    static constexpr std::uint32_t usual = file_attribute::readOnly | file_attribute::directory;
    // What the attribute switch selects by itself: all files (0x80000 marks files pinned to this computer).
    static constexpr std::uint32_t all = 0x80017;

    // The masks of a search that leaves nothing out.
    static constexpr AttributeMasks Everything() { return {all, 0, 0, 0}; }

    // Whether files with these attributes are seen at all, whatever the letters ask for.
    bool Shows(std::uint32_t attributes) const noexcept;
    bool Select(std::uint32_t attributes) const noexcept;
};

// Reads what stands behind the switch letter: an optional ":", then letters, "-" in front of one for "must
// not be set", "+" for "one of these", "_" for nothing; any other character ends the list. 0, or the error
// code (not reported) of the dialog that ":=" asks for.
int GetSearchAttributes(std::u16string_view text, AttributeMasks& masks);

// The attributes as letters: "R", "H", "S", "D" and "A" at their places with "_" for one that is not set,
// then the others that are set. The letters select the file again.
CString AttributeLetters(std::uint32_t attributes);

// A change of attributes: letters to be set, "-" in front of one to be cleared, "+" as nothing. Only those of
// "RHSATOIPU" can be changed.
struct AttributeChange {
    std::uint32_t set = 0;
    std::uint32_t clear = 0;
};
std::optional<AttributeChange> ReadAttributeChange(std::u16string_view text);
