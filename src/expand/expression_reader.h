// The cursor over an expression that both evaluators share: blanks, operators, numbers and names.
#pragma once

#include <string_view>

#include "expand/decimal.h"

class ExpressionReader {
public:
    explicit ExpressionReader(std::u16string_view expression) : text(expression) {}

    bool AtEnd();    // only blanks are left
    char16_t Peek(); // the next unit that is not blank, 0 at the end
    char16_t PeekSecond() const { return at + 1 < text.size() ? text[at + 1] : u'\0'; } // directly behind it
    bool Take(std::u16string_view symbol); // passes over it when it stands here
    void Skip(std::size_t units) { at += units; }

    // Numbers with a prefix: 0x, 0b, 0o. False when none stands here.
    bool TakePrefixed(Decimal& value);
    // Digits with at most one decimal character, and an optional exponent ("1.5E-3").
    Decimal TakeDecimal(char16_t decimalChar);
    bool AtNumber(char16_t decimalChar);
    // A run of letters, digits and "_"; empty when none stands here.
    std::u16string_view TakeWord();

    std::u16string_view Rest() const { return text.substr(at); }
    // The text between the bracket that stands here and the one that closes it, both passed over.
    std::u16string_view TakeBrackets(char16_t open, char16_t close);

private:
    std::u16string_view text;
    std::size_t at = 0;
};
