// Cutting the bytes of a text file where they can be decoded piece by piece. Pure.
#pragma once

#include <cstddef>
#include <string_view>

#include "text/encoding.h"

// The bytes of `block` up to its last line end; 0 when it holds none.
std::size_t WholeLines(std::string_view block, TextEncoding encoding) noexcept;

// The bytes of `block` up to its last whole character, for lines too long to wait for. In a code page every
// byte counts as one: a double-byte character may be cut.
std::size_t WholeCharacters(std::string_view block, TextEncoding encoding) noexcept;
