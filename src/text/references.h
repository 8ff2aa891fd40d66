// Passing over a variable reference that is not expanded yet, so that what stands in its brackets or modifier
// neither ends a command nor begins a redirection.
#pragma once

#include <cstddef>
#include <string_view>

#include "text/syntax.h"

// Behind the reference that the "%" at `at` begins, as far as its brackets ("%@name[...]", "%(...)",
// "%{...}", "%[[...]]"), its modifier ("%name:a=b%") or its own end ("%name%", which a "+" may follow) hide
// anything; else directly behind the "%", or behind "%%".
std::size_t PassReference(std::u16string_view text, std::size_t at, const Syntax& syntax);
