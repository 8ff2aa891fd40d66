// Delayed expansion: "!name!" references, replaced before the line's own pass.
#pragma once

#include <cstddef>
#include <string_view>

#include "text/syntax.h"

struct DelayedReference {
    std::size_t start = 0;    // of the opening "!"
    std::size_t length = 0;   // closing "!" included; 0 when there is none
    std::u16string_view name; // with its modifiers; "" for an escape character that is to be dropped
};

// The first reference at or after `from`. `inQuotes` is the state of double quotes at `from` and is brought
// up to date: inside them the escape character does not protect a "!". In .bat and .cmd files it does, and
// outside of them authors write it twice.
DelayedReference FindDelayedReference(std::u16string_view text, std::size_t from, bool& inQuotes,
                                      const Syntax& syntax);
