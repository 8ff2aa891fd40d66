// Which typed lines the command history keeps when nobody insists. Only computes; console/history.cpp brings
// the facts.
#pragma once

#include <cstddef>
#include <string_view>

#include "text/syntax.h"

struct HistoryRules {
    std::size_t shortest = 0;     // HistMin, in units
    std::size_t listSize = 0;     // units
    std::u16string_view excluded; // HistoryExclude: patterns for the command's name
};

// `line` has no blanks at its end.
bool IsKeptInHistory(std::u16string_view line, const HistoryRules& rules, const Syntax& syntax);
