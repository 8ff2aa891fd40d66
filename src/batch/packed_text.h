// Unpacking packed batch files.
//
// A packed file is a header, a table of the 30 commonest bytes and a stream of 4-bit codes. There are two
// forms, told apart by their first word; the second has its table scrambled. Files of the keyed variant are
// enciphered and cannot be read.
#pragma once

#include <string_view>
#include <vector>

enum class UnpackResult { Done, NotPacked, Keyed, Damaged };

bool IsPackedText(std::string_view file) noexcept;

// Fills `text` with the unpacked bytes; unchanged unless the answer is Done.
UnpackResult UnpackText(std::string_view file, std::vector<char>& text);
