// The output formats of the evaluator: "=H", "=2.4", "=E+" and the like.
#pragma once

#include <cstddef>
#include <string_view>

#include "expand/decimal.h"
#include "text/cstring.h"

struct NumberFormat {
    std::size_t least = 0; // places behind the decimal point
    std::size_t most = 10;
    char16_t letter = 0; // H, X, O, B, E, or 0 for plain decimals
    bool plus = false;   // "+" in front of what is not negative
};

// The place of the "=" that begins the format: the first that is not part of "!=", "<=" or ">="; npos without
// one.
std::size_t FindFormat(std::u16string_view expression);

// Reads what stands behind the "=". False when there is nothing but blanks; throws DecimalError for a format
// that does not exist.
bool ReadFormat(std::u16string_view text, NumberFormat& format);

CString FormatNumber(const Decimal& number, const NumberFormat& format, char16_t decimalChar);
