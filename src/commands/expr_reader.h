// What EXPR calculates with: whole numbers of any size, comparisons, and texts that are measured, cut and
// matched. Pure.
//
//   expression   a | b     a unless it is empty or 0, else b
//                a & b     a unless one of them is empty or 0, else 0
//                a < b     and <=, =, ==, !=, >=, >: numbers as such, anything else by its units; 1 or 0
//                a + b     and -, *, /, %
//                a : b     match a b
//   term         match text regex, substr text place length, index text units, length text, + word, ( ... )
//
// The operators bind tighter from line to line and group to the left. Every word is an argument of its own.
#pragma once

#include <vector>

#include "text/cstring.h"

struct ExprAnswer {
    CString value;
    unsigned error = 0; // of lang/messages.h
    CString culprit;    // the word that the message speaks of
};

ExprAnswer CalculateExpr(const std::vector<CString>& words);

// Whether a value counts as false: empty, or a number that is zero.
bool IsNothing(std::u16string_view value);
