// Packing and unpacking batch files by the bytes they use most.
//
// A packed file is a header, a table of the 30 commonest bytes and a stream of 4-bit codes. There are two
// forms, told apart by their first word; the second has its table scrambled. Files of the keyed variant are
// enciphered and cannot be read.
#pragma once

#include <string>
#include <string_view>
#include <vector>

enum class UnpackResult { Done, NotPacked, Keyed, Damaged };

constexpr std::size_t longestPackedText = 0xFFFF; // bytes

bool IsPackedText(std::string_view file) noexcept;

// Fills `text` with the unpacked bytes; unchanged unless the answer is Done.
UnpackResult UnpackText(std::string_view file, std::vector<char>& text);

enum class TableForm { Plain, Scrambled };

// The packed file of a text of at most longestPackedText bytes. Some lengths of the plain form read as the
// keyed variant: such a text gets `filler`, one line end in its encoding, behind it.
std::string PackText(std::string_view text, TableForm form, std::string_view filler);
