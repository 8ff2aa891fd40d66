#include "expand/number_format.h"

#include <algorithm>
#include <string>

#include "expand/evaluator.h"
#include "lang/errors.h"
#include "text/compare.h"
#include "text/encoding.h"
#include "text/numbers.h"

namespace {

using View = std::u16string_view;

constexpr std::size_t npos = View::npos;
constexpr std::size_t mostShownPlaces = 100000;

bool IsSpace(char16_t unit) { return unit == u' ' || (unit >= u'\t' && unit <= u'\r'); }

void SkipSpace(View& text)
{
    while (!text.empty() && IsSpace(text[0]))
        text.remove_prefix(1);
}

void SkipPlus(View& text, NumberFormat& format)
{
    SkipSpace(text);
    while (!text.empty() && text[0] == u'+') {
        format.plus = true;
        text.remove_prefix(1);
        SkipSpace(text);
    }
}

bool TakeNumber(View& text, std::size_t& number)
{
    if (text.empty() || !IsDigit(text[0]))
        return false;
    std::size_t used = 0;
    number = static_cast<std::size_t>(ReadDecimal(text, &used).value_or(0));
    text.remove_prefix(used);
    return true;
}

// Trailing zeros beyond the least number of places go, and a point with nothing behind it.
void TrimZeros(std::string& text, std::size_t least)
{
    const std::size_t point = text.find('.');
    if (point == std::string::npos)
        return;
    const std::size_t end = point + 1 + least;
    while (text.size() > end && text.back() == '0')
        text.pop_back();
    if (text.back() == '.')
        text.pop_back();
}

std::string Digits(const Decimal& number, const NumberFormat& format)
{
    switch (format.letter) {
    case u'H': return number.InBase(-16);
    case u'X': return "0x" + number.InBase(-16);
    case u'O': return number.InBase(8);
    case u'B': return number.InBase(2);
    case u'E': return number.Scientific(std::min(format.most, mostShownPlaces));
    default: break;
    }
    std::string text =
        number.Fixed(std::min({std::max(number.Places(), format.least), format.most, mostShownPlaces}));
    TrimZeros(text, format.least);
    return text;
}

} // namespace

std::size_t FindFormat(View expression)
{
    for (std::size_t at = 0; (at = expression.find(u'=', at)) != npos; ++at) {
        const char16_t before = at == 0 ? u'\0' : expression[at - 1];
        if (before != u'!' && before != u'<' && before != u'>')
            return at;
    }
    return npos;
}

bool ReadFormat(View text, NumberFormat& format)
{
    SkipSpace(text);
    if (text.empty())
        return false;
    SkipPlus(text, format);
    if (!text.empty() && View(u"HXOBEhxobe").find(text[0]) != npos) {
        format.letter = UpperCase(text[0]);
        text.remove_prefix(1);
        SkipPlus(text, format);
    }
    std::size_t least = 0;
    if (TakeNumber(text, least)) {
        std::size_t most = least;
        // Any character may part the two.
        if (!text.empty() && text[0] != u'+' && !IsSpace(text[0])) {
            text.remove_prefix(1);
            if (!TakeNumber(text, most))
                throw DecimalError{errors::syntax};
        }
        format.least = least;
        format.most = std::max(least, most);
        SkipPlus(text, format);
    }
    if (!text.empty())
        throw DecimalError{errors::syntax};
    return true;
}

CString FormatNumber(const Decimal& number, const NumberFormat& format, char16_t decimalChar)
{
    CString text = FromAscii(Digits(number, format));
    const std::size_t point = text.Find(u'.');
    if (point != CString::npos)
        text.Set(point, decimalChar);
    const bool signable = format.letter == 0 || format.letter == u'E';
    if (format.plus && signable && text.front() != u'-')
        text.Insert(0, u"+");
    return text;
}

bool IsNumericText(View text, char16_t decimalChar)
{
    SkipSpace(text);
    while (!text.empty() && IsSpace(text.back()))
        text.remove_suffix(1);
    if (!text.empty() && (text[0] == u'-' || text[0] == u'+'))
        text.remove_prefix(1);
    if (BeginsNoCase(text, u"0x"))
        return text.size() > 2 && text.find_first_not_of(u"0123456789ABCDEFabcdef", 2) == npos;
    bool digit = false;
    bool point = false;
    for (const char16_t unit : text) {
        const bool isPoint = unit == u'.' || unit == decimalChar;
        if (isPoint ? point : !IsDigit(unit))
            return false;
        point = point || isPoint;
        digit = digit || !isPoint;
    }
    return digit;
}

void SeparateThousands(CString& number, char16_t decimalChar, char16_t thousandsChar)
{
    const std::size_t first = number.view().find_first_of(u"0123456789");
    if (first == npos)
        return;
    std::size_t end = first;
    while (end < number.size() && IsDigit(number[end]))
        ++end;
    if (end < number.size() && number[end] != decimalChar && number[end] != u'.' && !IsSpace(number[end]))
        return;
    for (std::size_t at = end; at > first + 3;) {
        at -= 3;
        number.Insert(at, View(&thousandsChar, 1));
    }
}
