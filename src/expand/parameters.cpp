#include "expand/parameters.h"

#include <algorithm>

#include "text/compare.h"
#include "text/format.h"
#include "text/words.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;

// The text of the entries from `first` to `last`, as they were written while text and entries still agree.
CString Range(const Parameters& parameters, std::size_t first, std::size_t last, const Syntax& syntax)
{
    CString result;
    last = std::min(last, parameters.count - 1);
    if (first > last)
        return result;
    const std::u16string_view text = parameters.text;
    if (parameters.separator == u' ' &&
        static_cast<std::size_t>(CountArguments(text, syntax)) == parameters.count - 1) {
        Word word = NextWord(text, 0, syntax);
        for (std::size_t n = 1; n < first; ++n)
            word = NextWord(text, word.end(), syntax);
        const std::size_t start = word.start;
        for (std::size_t n = first; n < last; ++n)
            word = NextWord(text, word.end(), syntax);
        result = last == parameters.count - 1 ? text.substr(start) : text.substr(start, word.end() - start);
        return result.TrimRight();
    }
    for (std::size_t n = first; n <= last; ++n) {
        if (n != first)
            result.Append(parameters.separator);
        result.Append(parameters.entries[n]);
    }
    return result;
}

CString AllParameters(const Parameters& parameters, const Syntax& syntax)
{
    if (parameters.wholeTail)
        return CString(parameters.text).Trim();
    return Range(parameters, parameters.shift + 1, npos, syntax);
}

bool EndsTail(std::u16string_view text)
{
    return text.size() < 2 || std::u16string_view(u" \t,\"|<>{}();+=/'").find(text[1]) != npos;
}

bool IsNameUnit(char16_t unit) { return IsLetterOrDigit(unit) || unit == u'_' || unit == u'$'; }

} // namespace

std::u16string_view Parameters::Entry(std::size_t n) const
{
    return shift < count && n < count - shift ? entries[shift + n].view() : std::u16string_view();
}

std::size_t Parameters::Count() const { return count > shift + 1 ? count - shift - 1 : 0; }

std::size_t ReadParameterNumber(std::u16string_view text, std::size_t& length)
{
    std::size_t value = 0;
    for (length = 0; length < text.size() && IsDigit(text[length]); ++length)
        value = std::min<std::size_t>(value * 10 + (text[length] - u'0'), 1000000);
    return value;
}

ParameterReference ReadParameter(std::u16string_view text, const Parameters& parameters, const Syntax& syntax)
{
    ParameterReference found;
    if (text.empty() || parameters.count == 0)
        return found;
    // Scripts of the everyday kind write "[%*]" as well.
    if (text[0] == u'*' && (syntax.openQuotes || EndsTail(text)))
        return {1, AllParameters(parameters, syntax)};
    if (text[0] == u'#')
        return {1, Format(u"%u", parameters.Count())};
    if (text[0] == syntax.parameterChar && (text.size() < 2 || !IsNameUnit(text[1])))
        return {1, Range(parameters, parameters.shift + 1, npos, syntax)};
    const bool upTo = text[0] == u'-';
    std::size_t digits = 0;
    const std::size_t number = ReadParameterNumber(text.substr(upTo ? 1 : 0), digits);
    if (digits == 0)
        return found;
    found.length = (upTo ? 1 : 0) + digits;
    const bool tail = found.length < text.size() && text[found.length] == syntax.parameterChar;
    found.length += tail ? 1 : 0;
    if (upTo)
        found.value = Range(parameters, parameters.shift + 1, parameters.shift + number, syntax);
    else if (tail)
        found.value = Range(parameters, parameters.shift + std::max<std::size_t>(number, 1), npos, syntax);
    else
        found.value = parameters.Entry(number);
    return found;
}
