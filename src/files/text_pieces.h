// Finding places in the bytes of a text file: where they can be decoded piece by piece, and line by line.
// Pure.
//
// Blocks of UTF-16 begin at an even place of the file.
#pragma once

#include <cstddef>
#include <string_view>

#include "text/encoding.h"

// The bytes of `block` up to its last line end; 0 when it holds none.
std::size_t WholeLines(std::string_view block, TextEncoding encoding) noexcept;

// The bytes of `block` up to its last whole character, for lines too long to wait for. In a code page every
// byte counts as one: a double-byte character may be cut.
std::size_t WholeCharacters(std::string_view block, TextEncoding encoding) noexcept;

// How many line ends (LF) the block holds.
std::size_t CountLineEnds(std::string_view block, TextEncoding encoding) noexcept;

// The place behind line end `n`, counted from 1, of the block; npos when it holds fewer.
std::size_t BehindLineEnd(std::string_view block, TextEncoding encoding, std::size_t n) noexcept;

// Whether the block's last character is a line end.
bool EndsWithLineEnd(std::string_view block, TextEncoding encoding) noexcept;

// How many bytes the first `count` units of the text take (UTF-16 units, so that a character beyond 0xFFFF
// counts twice); all of the block when it holds fewer. No character is cut, in a code page every byte is one.
std::size_t BytesOfCharacters(std::string_view block, TextEncoding encoding, std::size_t count) noexcept;
