// Functions of decimal numbers whose values have no end: logarithms, powers, angles.
//
// All answers are rounded to `places` places and right in every one of them but, rarely, the last. Arguments
// for which there is no value throw DecimalError.
#pragma once

#include "expand/decimal.h"

enum class DecimalFunction {
    Log, // natural
    Log2,
    Log10,
    Exp,
    Sin,
    Asin,
    Sinh,
    Cos,
    Acos,
    Cosh,
    Tan,
    Atan,
    Tanh,
};

Decimal Apply(DecimalFunction function, const Decimal& argument, std::size_t places);
Decimal Pi(std::size_t places);
// The base is positive, or the exponent is whole.
Decimal Power(const Decimal& base, const Decimal& exponent, std::size_t places);
