// The evaluator: arithmetic with decimal numbers of any size, and with whole numbers in the way of SET /A.
//
// Both replace an expression by its value and know nothing of the world but what EvaluatorNames tells them.
#pragma once

#include <cstddef>
#include <string_view>

#include "text/cstring.h"

// What names stand for. The defaults know none.
class EvaluatorNames {
public:
    virtual ~EvaluatorNames() = default;
    // The value of an array's element; false when `name` is no array. `code` is set when reading it failed
    // and was reported.
    virtual bool ArrayElement(std::u16string_view, std::u16string_view, CString&, int&) { return false; }
    // Variables, for whole numbers only.
    virtual bool Variable(std::u16string_view, CString&) { return false; }
    // 0, or a code that was reported.
    virtual int SetVariable(std::u16string_view, std::u16string_view) { return 0; }
};

struct EvaluatorSettings {
    std::size_t least = 0; // places behind the decimal point, at least and at most
    std::size_t most = 10;
    char16_t decimalChar = u'.';
};

// How an evaluation ended: 0 or an error code, and whether somebody reported it already.
struct EvaluatorResult {
    int code = 0;
    bool reported = false;
};

// "expression" or "expression=format". An error leaves the text as it was.
EvaluatorResult EvaluateDecimal(CString& text, const EvaluatorSettings& settings, EvaluatorNames& names);

// SET /A: operators with the precedence of C, bare names of variables, assignments and commas.
EvaluatorResult EvaluateWhole(CString& text, EvaluatorNames& names);

// Whether the text is a number that EvaluateDecimal reads: an optional sign, digits with at most one decimal
// character, or 0x and hexadecimal digits; blanks around it aside.
bool IsNumericText(std::u16string_view text, char16_t decimalChar);

// Separates the digits of the whole part of a number into groups of three.
void SeparateThousands(CString& number, char16_t decimalChar, char16_t thousandsChar);
