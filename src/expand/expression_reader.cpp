#include "expand/expression_reader.h"

#include <string>

#include "lang/errors.h"
#include "text/compare.h"

namespace {

bool IsSpace(char16_t unit) { return unit == u' ' || (unit >= u'\t' && unit <= u'\r'); }

[[noreturn]] void SyntaxError() { throw DecimalError{errors::syntax}; }

} // namespace

bool ExpressionReader::AtEnd()
{
    while (at < text.size() && IsSpace(text[at]))
        ++at;
    return at == text.size();
}

char16_t ExpressionReader::Peek() { return AtEnd() ? u'\0' : text[at]; }

bool ExpressionReader::Take(std::u16string_view symbol)
{
    if (AtEnd() || !Rest().starts_with(symbol))
        return false;
    at += symbol.size();
    return true;
}

bool ExpressionReader::TakePrefixed(Decimal& value)
{
    if (Peek() != u'0' || at + 1 >= text.size())
        return false;
    const char16_t letter = UpperCase(text[at + 1]);
    const int base = letter == u'X' ? 16 : letter == u'O' ? 8 : letter == u'B' ? 2 : 0;
    if (base == 0)
        return false;
    at += 2;
    std::uint64_t bits = 0;
    const std::size_t first = at;
    for (; at < text.size() && IsDigitOf(text[at], base); ++at) {
        // 64 bits are all there are.
        if (bits > (~std::uint64_t{0} - static_cast<std::uint64_t>(HexDigit(text[at]))) /
                       static_cast<unsigned>(base))
            throw DecimalError{errors::numberTooLarge};
        bits = bits * static_cast<unsigned>(base) + static_cast<unsigned>(HexDigit(text[at]));
    }
    if (at == first)
        SyntaxError();
    value = Decimal(static_cast<std::int64_t>(bits));
    return true;
}

bool ExpressionReader::AtNumber(char16_t decimalChar)
{
    const char16_t first = Peek();
    const bool point = first == u'.' || first == decimalChar;
    return IsDigit(first) || (point && IsDigit(PeekSecond()));
}

Decimal ExpressionReader::TakeDecimal(char16_t decimalChar)
{
    std::string digits;
    bool point = false;
    for (; at < text.size(); ++at) {
        const char16_t unit = text[at];
        if (IsDigit(unit)) {
            digits.push_back(static_cast<char>(unit));
        } else if (!point && (unit == u'.' || unit == decimalChar)) {
            point = true;
            digits.push_back('.');
        } else {
            break;
        }
    }
    if (digits.empty() || digits == ".")
        SyntaxError();
    const Decimal value = Decimal::FromDigits(digits);
    if (at >= text.size() || UpperCase(text[at]) != u'E')
        return value;
    std::size_t behind = at + 1;
    const bool negative = behind < text.size() && text[behind] == u'-';
    behind += behind < text.size() && (text[behind] == u'-' || text[behind] == u'+') ? 1 : 0;
    if (behind >= text.size() || !IsDigit(text[behind]))
        return value;
    std::int64_t exponent = 0;
    for (at = behind; at < text.size() && IsDigit(text[at]); ++at)
        exponent = std::min<std::int64_t>(exponent * 10 + (text[at] - u'0'), Decimal::mostDigits + 1);
    return value.Shifted(negative ? -exponent : exponent);
}

std::u16string_view ExpressionReader::TakeWord()
{
    Peek();
    const std::size_t first = at;
    while (at < text.size() && (IsLetterOrDigit(text[at]) || text[at] == u'_'))
        ++at;
    return text.substr(first, at - first);
}

std::u16string_view ExpressionReader::TakeBrackets(char16_t open, char16_t close)
{
    if (Peek() != open)
        SyntaxError();
    int depth = 0;
    for (std::size_t end = at; end < text.size(); ++end) {
        depth += text[end] == open ? 1 : 0;
        if (text[end] == close && --depth == 0) {
            const std::u16string_view inside = text.substr(at + 1, end - at - 1);
            at = end + 1;
            return inside;
        }
    }
    SyntaxError();
}
