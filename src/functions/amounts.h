// Amounts of bytes as functions answer them: in units, with separators of thousands when asked for.
#pragma once

#include <cstdint>
#include <string_view>

#include "functions/file_answers.h"

struct AmountUnit {
    std::int64_t bytes = 1;
    bool separators = false;
};

// One of the letters of text/size_units.h, a "c" behind it (or alone) for separators; "" for bytes. False for
// anything else.
bool ReadAmountUnit(std::u16string_view text, AmountUnit& unit);

// Whole units; what is left over is dropped.
int AnswerAmount(FunctionCall& call, std::uint64_t bytes, const AmountUnit& unit);
