#include "text/words.h"

#include <array>

#include "text/scanner.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;

// Brackets within brackets that still hold a word together. Without a limit a line of nothing but opening
// brackets would be searched to its end for each of them.
constexpr int deepestBrackets = 32;

constexpr std::array<bool, 128> quotedUnits = [] {
    std::array<bool, 128> quoted{};
    for (const char16_t unit : std::u16string_view(u" \t,;=&|<>()^+`%"))
        quoted[unit] = true;
    return quoted;
}();

std::size_t PassWord(std::u16string_view text, std::size_t at, const Syntax& syntax)
{
    const std::u16string_view delimiters = Delimiters(syntax);
    while (at < text.size() && delimiters.find(text[at]) == npos && text[at] != u'\n') {
        const char16_t unit = text[at];
        std::size_t closing = npos;
        if (syntax.escapes && unit == syntax.escapeChar)
            closing = at + 1;
        else if (unit == u'"' || unit == u'`')
            closing = text.find(unit, at + 1);
        else if (unit == u'[')
            closing = FindClosing(text, at, quotes::both, syntax, deepestBrackets);
        // A lone double quote takes the rest; a lone bracket or back-quote is an ordinary character.
        if (closing == npos && unit == u'"')
            return text.size();
        at = closing == npos ? at + 1 : closing + 1;
    }
    return at < text.size() ? at : text.size();
}

} // namespace

std::u16string_view Delimiters(const Syntax& syntax) { return syntax.cmdDelimiters ? u" \t,;=" : u" \t,"; }

Word NextWord(std::u16string_view text, std::size_t from, const Syntax& syntax)
{
    const std::u16string_view delimiters = Delimiters(syntax);
    while (from < text.size() && (delimiters.find(text[from]) != npos || text[from] == u'\n'))
        ++from;
    if (from >= text.size())
        return {text.size(), 0};
    return {from, PassWord(text, from, syntax) - from};
}

Word NextBlankWord(std::u16string_view text, std::size_t from)
{
    constexpr std::u16string_view blanks = u" \t\r\n";
    while (from < text.size() && blanks.find(text[from]) != npos)
        ++from;
    std::size_t end = from;
    for (bool quoted = false; end < text.size() && (quoted || blanks.find(text[end]) == npos); ++end)
        quoted = quoted != (text[end] == u'"');
    return {from, end - from};
}

CString GetNthArgument(std::u16string_view text, int n, const Syntax& syntax, std::size_t* start)
{
    Word word = NextWord(text, 0, syntax);
    for (; n > 0 && word.length > 0; --n)
        word = NextWord(text, word.end(), syntax);
    if (start)
        *start = word.length > 0 ? word.start : npos;
    return CString(text.substr(word.start, word.length));
}

std::u16string_view TailFromArgument(std::u16string_view text, int n, const Syntax& syntax)
{
    std::size_t start = npos;
    GetNthArgument(text, n, syntax, &start);
    return start == npos ? std::u16string_view() : text.substr(start);
}

int CountArguments(std::u16string_view text, const Syntax& syntax)
{
    int count = 0;
    for (Word word = NextWord(text, 0, syntax); word.length > 0; word = NextWord(text, word.end(), syntax))
        ++count;
    return count;
}

std::vector<CString> SplitArguments(std::u16string_view text, bool stripBackQuotes, const Syntax& syntax)
{
    std::vector<CString> arguments;
    for (Word word = NextWord(text, 0, syntax); word.length > 0; word = NextWord(text, word.end(), syntax)) {
        std::u16string_view argument = text.substr(word.start, word.length);
        if (stripBackQuotes && argument.size() >= 2 && argument.front() == u'`' && argument.back() == u'`')
            argument = argument.substr(1, argument.size() - 2);
        arguments.emplace_back(argument);
    }
    return arguments;
}

CString WithoutQuotes(std::u16string_view text)
{
    CString result;
    result.Reserve(text.size());
    for (const char16_t unit : text)
        if (unit != u'"')
            result.Append(unit);
    return result;
}

CString WithoutOuterQuotes(std::u16string_view text)
{
    if (text.size() >= 2 && text.front() == u'"' && text.back() == u'"')
        text = text.substr(1, text.size() - 2);
    return CString(text);
}

bool NeedsQuotes(std::u16string_view text)
{
    bool needed = false;
    for (const char16_t unit : text) {
        if (unit == u'"')
            return false;
        needed = needed || (unit < quotedUnits.size() && quotedUnits[unit]);
    }
    return needed;
}

CString AddQuotes(std::u16string_view text)
{
    if (!NeedsQuotes(text))
        return CString(text);
    CString quoted(u"\"");
    quoted.Append(text).Append(u'"');
    return quoted;
}
